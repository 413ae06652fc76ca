#include "controls/picturebox/picture_store.h"

#include <algorithm>
#include <exception>
#include <numeric>
#include <utility>

namespace controls {

namespace {

constexpr int untilItEnds = 1'000'000'000;  // milliseconds; as long as it would take without the worker

}  // namespace

void PictureStore::expect(std::vector<std::string> files, std::int64_t shownBytes) {
    wanted_ = std::move(files);
    shownBytes_ = shownBytes;
}

bool PictureStore::fetchOn() {
    collect(0);
    std::erase_if(ready_,
                  [this](const ReadyPicture& picture) { return rank(picture.fileName) == wanted_.size(); });
    if (fetch_) return true;  // one at a time, even if nobody wants it any more
    const auto next = std::find_if(wanted_.begin(), wanted_.end(),
                                   [this](const std::string& file) { return !holds(file); });
    if (next != wanted_.end()) fetch(static_cast<std::size_t>(next - wanted_.begin()));
    return fetch_.has_value();
}

std::optional<ReadyPicture> PictureStore::take(const std::string& fileName) {
    if (fetch_) collect(fetch_->fileName == fileName ? untilItEnds : 0);
    const auto found = std::find_if(ready_.begin(), ready_.end(), [&](const ReadyPicture& picture) {
        return picture.fileName == fileName;
    });
    if (found == ready_.end()) return std::nullopt;
    ReadyPicture picture = std::move(*found);
    ready_.erase(found);
    if (platform::files::version(fileName) != picture.version) return std::nullopt;
    return picture;
}

void PictureStore::keep(ReadyPicture picture) {
    const std::int64_t onTheWay = fetch_ ? shownBytes_ : 0;
    if (bytes() + onTheWay + picture.bytes() <= mostBytes_) ready_.push_back(std::move(picture));
}

std::int64_t PictureStore::bytes() const {
    return std::accumulate(
        ready_.begin(), ready_.end(), std::int64_t{0},
        [](std::int64_t sum, const ReadyPicture& picture) { return sum + picture.bytes(); });
}

bool PictureStore::holds(const std::string& fileName) const {
    return std::any_of(ready_.begin(), ready_.end(),
                       [&](const ReadyPicture& picture) { return picture.fileName == fileName; });
}

/// Its place in what is wanted, from 0; behind the last when it is not wanted.
std::size_t PictureStore::rank(const std::string& fileName) const {
    return static_cast<std::size_t>(std::find(wanted_.begin(), wanted_.end(), fileName) - wanted_.begin());
}

void PictureStore::collect(int waitMilliseconds) {
    if (!fetch_ || !fetch_->task->wait(waitMilliseconds)) return;
    const Fetch ended = std::move(*fetch_);
    fetch_.reset();
    if (*ended.result)
        ready_.push_back(std::move(**ended.result));
    else
        std::erase(wanted_, ended.fileName);  // it is not tried again and again
}

void PictureStore::fetch(std::size_t place) {
    PictureBuffer spare = makeRoom(place);
    const std::int64_t room = mostBytes_ - bytes();
    if (room < shownBytes_ && !ready_.empty()) return;
    auto result = std::make_shared<std::optional<ReadyPicture>>();
    // A function object is copied; what it takes along has to be shared for that.
    auto given = std::make_shared<PictureBuffer>(std::move(spare));
    auto work = [result, given, file = wanted_[place], room](platform::BackgroundTask::Progress&) {
        *result = decodeAhead(file, std::move(*given), room);
    };
    try {
        fetch_ = Fetch{wanted_[place], result, std::make_unique<platform::BackgroundTask>(std::move(work))};
    } catch (const std::exception&) {
        wanted_.clear();  // what only saves time is no reason to disturb anybody
    }
}

/// Lets go of what is less wanted than that one until there is room for it. What was let go of last is handed
/// out: memory that is there already is the quickest.
PictureBuffer PictureStore::makeRoom(std::size_t place) {
    PictureBuffer spare;
    while (bytes() + shownBytes_ > mostBytes_) {
        const auto least = std::max_element(
            ready_.begin(), ready_.end(),
            [this](const auto& a, const auto& b) { return rank(a.fileName) < rank(b.fileName); });
        if (least == ready_.end() || rank(least->fileName) < place) break;
        spare = std::move(least->buffer);
        ready_.erase(least);
    }
    return spare;
}

}  // namespace controls
