#pragma once

#include <chrono>
#include <cstddef>
#include <cstdint>
#include <memory>
#include <string>
#include <vector>

#include "controls/picturebox/picture_load.h"

namespace controls {

/// Pictures that are decoded before they are asked for, while the user looks at another one. A worker gets a
/// path and hands over a finished picture; it shares nothing with the window. All operations run on the
/// user-interface thread.
class PictureStore {
  public:
    /// What is kept and what is being decoded takes no more than `mostBytes`, and neither does one picture.
    /// What is not decoded after `patience` is taken for one that hangs.
    explicit PictureStore(std::int64_t mostBytes = std::int64_t{64} << 20,
                          std::chrono::milliseconds patience = std::chrono::seconds(2))
        : mostBytes_(mostBytes), patience_(patience) {}

    /// The files that will be asked for next, the likeliest first; fetchOn() keeps no others. `shownBytes` is
    /// the size of the picture on the screen, by which the room for the next one is guessed.
    void expect(std::vector<std::string> files, std::int64_t shownBytes);

    /// Takes over what has been decoded and begins with the next, beside what hangs, as long as that is
    /// little. True while something is being decoded that does not hang.
    bool fetchOn();

    /// All that there is for that picture: itself, ready or on its way, which the store then no longer has,
    /// or the memory of the one that is wanted least. Asks the disk for nothing.
    PictureLoad take(const std::string& fileName);

    /// The loading of that picture was given up, but may go on: until it has ended the file is not fetched.
    void leave(const std::shared_ptr<PictureLoad>& load);

    /// Puts a picture that was on the screen into the store; the next expect() tells whether it stays.
    void keep(ReadyPicture picture);

    const std::vector<std::string>& expected() const { return wanted_; }
    std::size_t pictures() const { return ready_.size(); }
    std::int64_t bytes() const;

  private:
    /// What was given up; it has ended when its work is gone.
    struct Left {
        std::string fileName;
        std::weak_ptr<const void> work;
    };

    bool holds(const std::string& fileName) const;
    std::size_t rank(const std::string& fileName) const;
    void collect();
    bool fetch(std::size_t place);
    std::vector<ReadyPicture>::iterator leastWanted();
    PictureBuffer makeRoom(std::size_t place);

    const std::int64_t mostBytes_;
    const std::chrono::milliseconds patience_;
    std::vector<std::string> wanted_;
    std::vector<ReadyPicture> ready_;
    std::vector<PictureFetch> fetches_;
    std::vector<Left> left_;
    std::int64_t shownBytes_ = 0;
};

}  // namespace controls
