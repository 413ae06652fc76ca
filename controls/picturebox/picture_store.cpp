#include "controls/picturebox/picture_store.h"

#include <algorithm>
#include <exception>
#include <numeric>
#include <utility>

namespace controls {

namespace {

/// Each keeps a thread, and some memory that is not counted.
constexpr std::size_t mostThatHang = 3;

}  // namespace

void PictureStore::expect(std::vector<std::string> files, std::int64_t shownBytes) {
    wanted_ = std::move(files);
    shownBytes_ = shownBytes;
}

bool PictureStore::fetchOn() {
    collect();
    std::erase_if(ready_,
                  [this](const ReadyPicture& picture) { return rank(picture.fileName) == wanted_.size(); });
    const auto now = std::chrono::steady_clock::now();
    const auto goesOn = [&](const PictureFetch& fetch) { return now - fetch.begun < patience_; };
    // One at a time, even if nobody wants it any more.
    if (std::any_of(fetches_.begin(), fetches_.end(), goesOn)) return true;
    if (fetches_.size() + left_.size() >= mostThatHang) return false;
    const auto next = std::find_if(wanted_.begin(), wanted_.end(),
                                   [this](const std::string& file) { return !holds(file); });
    return next != wanted_.end() && fetch(static_cast<std::size_t>(next - wanted_.begin()));
}

PictureLoad PictureStore::take(const std::string& fileName) {
    const auto isIt = [&](const auto& one) { return one.fileName == fileName; };
    collect();
    PictureLoad load;
    load.fileName = fileName;
    const auto ready = std::find_if(ready_.begin(), ready_.end(), isIt);
    if (ready != ready_.end()) {
        load.ready = std::move(*ready);
        ready_.erase(ready);
        return load;
    }
    const auto fetch = std::find_if(fetches_.begin(), fetches_.end(), isIt);
    if (fetch != fetches_.end()) {
        load.fetch = std::make_shared<PictureFetch>(std::move(*fetch));
        fetches_.erase(fetch);
    } else if (const auto least = leastWanted(); least != ready_.end()) {
        load.spare = std::move(least->buffer);
        ready_.erase(least);
    }
    return load;
}

void PictureStore::leave(const std::shared_ptr<PictureLoad>& load) {
    left_.push_back({load->fileName, load});
    if (load->fetch) left_.push_back({load->fileName, load->fetch->result});
}

void PictureStore::keep(ReadyPicture picture) {
    const std::int64_t onTheWay = fetches_.empty() ? 0 : shownBytes_;
    if (bytes() + onTheWay + picture.bytes() <= mostBytes_) ready_.push_back(std::move(picture));
}

std::int64_t PictureStore::bytes() const {
    return std::accumulate(
        ready_.begin(), ready_.end(), std::int64_t{0},
        [](std::int64_t sum, const ReadyPicture& picture) { return sum + picture.bytes(); });
}

/// Whether there is, or goes on, anything that need not be begun a second time.
bool PictureStore::holds(const std::string& fileName) const {
    const auto isIt = [&](const auto& one) { return one.fileName == fileName; };
    return std::any_of(ready_.begin(), ready_.end(), isIt) ||
           std::any_of(fetches_.begin(), fetches_.end(), isIt) ||
           std::any_of(left_.begin(), left_.end(), isIt);
}

/// Its place in what is wanted, from 0; behind the last when it is not wanted.
std::size_t PictureStore::rank(const std::string& fileName) const {
    return static_cast<std::size_t>(std::find(wanted_.begin(), wanted_.end(), fileName) - wanted_.begin());
}

void PictureStore::collect() {
    for (auto fetch = fetches_.begin(); fetch != fetches_.end();) {
        if (!fetch->task->wait(0)) {
            ++fetch;
            continue;
        }
        if (*fetch->result)
            ready_.push_back(std::move(**fetch->result));
        else
            std::erase(wanted_, fetch->fileName);  // it is not tried again and again
        fetch = fetches_.erase(fetch);
    }
    std::erase_if(left_, [](const Left& left) { return left.work.expired(); });
}

bool PictureStore::fetch(std::size_t place) {
    PictureBuffer spare = makeRoom(place);
    const std::int64_t room = mostBytes_ - bytes();
    if (room < shownBytes_ && !ready_.empty()) return false;
    auto result = std::make_shared<std::optional<ReadyPicture>>();
    // A function object is copied; what it takes along has to be shared for that.
    auto given = std::make_shared<PictureBuffer>(std::move(spare));
    auto work = [result, given, file = wanted_[place], room](platform::BackgroundTask::Progress&) {
        *result = decodeAhead(file, std::move(*given), room);
    };
    try {
        fetches_.push_back(
            {wanted_[place], result, std::make_unique<platform::BackgroundTask>(std::move(work))});
        return true;
    } catch (const std::exception&) {
        wanted_.clear();  // what only saves time is no reason to disturb anybody
        return false;
    }
}

std::vector<ReadyPicture>::iterator PictureStore::leastWanted() {
    return std::max_element(ready_.begin(), ready_.end(), [this](const auto& a, const auto& b) {
        return rank(a.fileName) < rank(b.fileName);
    });
}

/// Lets go of what is less wanted than that one until there is room for it. What was let go of last is handed
/// out: memory that is there already is the quickest.
PictureBuffer PictureStore::makeRoom(std::size_t place) {
    PictureBuffer spare;
    while (bytes() + shownBytes_ > mostBytes_) {
        const auto least = leastWanted();
        if (least == ready_.end() || rank(least->fileName) < place) break;
        spare = std::move(least->buffer);
        ready_.erase(least);
    }
    return spare;
}

}  // namespace controls
