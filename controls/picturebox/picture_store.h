#pragma once

#include <cstddef>
#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "controls/picturebox/picture_file.h"
#include "platform/background_task.h"

namespace controls {

/// Pictures that are decoded before they are asked for, while the user looks at another one. A worker gets a
/// path and hands over a finished picture; it shares nothing with the window. All operations run on the
/// user-interface thread.
class PictureStore {
  public:
    /// What is kept and what is being decoded takes no more than `mostBytes`, and neither does one picture.
    explicit PictureStore(std::int64_t mostBytes = std::int64_t{64} << 20) : mostBytes_(mostBytes) {}

    /// The files that will be asked for next, the likeliest first; fetchOn() keeps no others. `shownBytes` is
    /// the size of the picture on the screen, by which the room for the next one is guessed.
    void expect(std::vector<std::string> files, std::int64_t shownBytes);

    /// Takes over what has been decoded and begins with the next. True while something is being decoded.
    bool fetchOn();

    /// The picture, if it is there and its file has not changed since; one that is being decoded is waited
    /// for. It is then no longer in the store.
    std::optional<ReadyPicture> take(const std::string& fileName);

    /// Puts a picture that was on the screen into the store; the next expect() tells whether it stays.
    void keep(ReadyPicture picture);

    const std::vector<std::string>& expected() const { return wanted_; }
    std::size_t pictures() const { return ready_.size(); }
    std::int64_t bytes() const;

  private:
    struct Fetch {
        std::string fileName;
        std::shared_ptr<std::optional<ReadyPicture>> result;
        std::unique_ptr<platform::BackgroundTask> task;
    };

    bool holds(const std::string& fileName) const;
    std::size_t rank(const std::string& fileName) const;
    void collect(int waitMilliseconds);
    void fetch(std::size_t place);
    PictureBuffer makeRoom(std::size_t place);

    const std::int64_t mostBytes_;
    std::vector<std::string> wanted_;
    std::vector<ReadyPicture> ready_;
    std::optional<Fetch> fetch_;
    std::int64_t shownBytes_ = 0;
};

}  // namespace controls
