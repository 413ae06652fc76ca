#include "editor/journal_file.h"

#include <algorithm>
#include <charconv>
#include <chrono>
#include <initializer_list>
#include <optional>

#include "platform/errors.h"
#include "platform/path.h"

namespace editor {

namespace {

namespace files = platform::files;
namespace path = platform::path;

constexpr std::string_view firstLine = "Stich journal 1";
constexpr std::string_view logEnding = ".log";
constexpr std::string_view copyEnding = ".kvs";
constexpr std::string_view asideEnding = ".bad";

platform::RuntimeError notUnderstood(const std::string& fileName) {
    return {platform::error::fileError, "Die Datei \"" + fileName + "\" ist beschädigt."};
}

std::string line(std::string_view word, std::initializer_list<std::int64_t> numbers) {
    std::string text(word);
    for (const std::int64_t number : numbers) text += ' ' + std::to_string(number);
    return text + '\n';
}

/// The numbers behind a word; false when the line does not begin with it or holds anything else.
template <class... Number>
bool matches(std::string_view line, std::string_view word, Number&... numbers) {
    if (!line.starts_with(word)) return false;
    const char* at = line.data() + word.size();
    const char* const end = line.data() + line.size();
    const auto one = [&](auto& number) {
        if (at == end || *at != ' ') return false;
        const auto [stop, error] = std::from_chars(at + 1, end, number);
        at = stop;
        return error == std::errc();
    };
    return (one(numbers) && ...) && at == end;
}

/// What stands behind the word and a blank.
std::optional<std::string> textBehind(std::string_view line, std::string_view word) {
    if (!line.starts_with(word) || line.substr(word.size(), 1) != " ") return std::nullopt;
    return std::string(line.substr(word.size() + 1));
}

std::int64_t now() {
    using namespace std::chrono;
    return duration_cast<milliseconds>(system_clock::now().time_since_epoch()).count();
}

template <class Action>
void ifPossible(Action action) {
    try {
        action();
    } catch (const platform::RuntimeError&) {
    }
}

}  // namespace

std::string JournalFile::logFile() const {
    return base_ + std::string(logEnding);
}
std::string JournalFile::copyFile(int number) const {
    return base_ + '.' + std::to_string(number) + std::string(copyEnding);
}

std::unique_ptr<JournalFile> JournalFile::create(const std::string& folder, const SetFile& file) {
    files::createDirectories(folder);
    for (std::int64_t name = now();; ++name) {
        const std::string base = path::join(folder, std::to_string(name));
        auto own = platform::OwnFile::open(base + std::string(logEnding));
        if (!own || !own->read().empty()) continue;
        std::string head = std::string(firstLine) + "\nset " + file.path + '\n';
        if (file.version)
            head += line("version", {static_cast<std::int64_t>(file.version->size), file.version->changed});
        own->append(head);
        return std::unique_ptr<JournalFile>(new JournalFile(base, std::move(own)));
    }
}

void JournalFile::writeCopy(const OpenSet& set, const std::vector<RegionRect>& rectangles) {
    const int number = copies_ + 1;
    writeSet(copyFile(number), {}, set, rectangles);
    own_->append(line("copy", {number}));
    copies_ = number;
    if (number > 1) ifPossible([&] { files::remove(copyFile(number - 1)); });
}

void JournalFile::writeChanges(const std::vector<OpenSet::Label>& labels,
                               const std::vector<MovedRegion>& regions) {
    std::string text;
    for (const auto& label : labels) text += line("label", {label.row, label.region, label.classIndex});
    for (const auto& [row, r] : regions) text += line("region", {row, r.X, r.Y, r.dX, r.dY});
    own_->append(text);
}

// Reading what was left --------------------------------------------------------------------------------

bool JournalFile::Log::take(std::string_view line) {
    OpenSet::Label label{};
    MovedRegion moved;
    files::Version version;
    RegionRect& r = moved.second;
    if (matches(line, "label", label.row, label.region, label.classIndex)) {
        labels.push_back(label);
    } else if (matches(line, "region", moved.first, r.X, r.Y, r.dX, r.dY)) {
        regions.push_back(moved);
    } else if (matches(line, "version", version.size, version.changed)) {
        file.version = version;
    } else if (const auto set = textBehind(line, "set")) {
        file.path = *set;
    } else if (matches(line, "copy", copy)) {
        labels.clear();
        regions.clear();
    } else {
        return false;
    }
    return true;
}

// Only the last line can have been cut off; any other one that makes no sense is damage.
JournalFile::Log JournalFile::Log::parse(const std::string& text, const std::string& fileName) {
    Log log;
    std::string_view rest = text;
    for (bool isFirst = true;; isFirst = false) {
        const std::size_t end = rest.find('\n');
        if (end == std::string_view::npos) return log;
        const std::string_view line = rest.substr(0, end);
        rest.remove_prefix(end + 1);
        if (isFirst ? line == firstLine : log.take(line)) continue;
        log.problem = notUnderstood(fileName).description();
        return log;
    }
}

namespace {

bool isNumber(std::string_view text) {
    return !text.empty() && text.find_first_not_of("0123456789") == std::string_view::npos;
}

}  // namespace

// Null while its program runs.
std::unique_ptr<JournalFile> JournalFile::openLeft(const std::string& base) {
    auto own = platform::OwnFile::openExisting(base + std::string(logEnding));
    if (!own) return nullptr;
    auto journal = std::unique_ptr<JournalFile>(new JournalFile(base, std::move(own)));
    journal->log_ = Log::parse(journal->own_->read(), journal->logFile());
    journal->copies_ = journal->log_.copy;
    return journal;
}

std::vector<std::unique_ptr<JournalFile>> JournalFile::left(const std::string& folder) {
    std::vector<std::unique_ptr<JournalFile>> found;
    std::vector<files::Entry> entries;
    if (!folder.empty()) ifPossible([&] { entries = files::list(folder); });
    for (const files::Entry& entry : entries) {
        if (entry.isDirectory || path::extension(entry.name) != logEnding) continue;
        ifPossible([&] {
            auto journal = openLeft(path::join(folder, path::stem(entry.name)));
            if (!journal) return;
            journal->written_ = entry.modified;
            if (journal->isUnderstood() && !journal->holdsCopy())
                journal->remove();
            else
                found.push_back(std::move(journal));
        });
    }
    removeOrphans(folder, entries);
    std::sort(found.begin(), found.end(), [](const auto& a, const auto& b) { return a->base_ > b->base_; });
    return found;
}

// Copies whose log is gone: their program ended in the middle of removing them.
void JournalFile::removeOrphans(const std::string& folder, const std::vector<files::Entry>& entries) {
    for (const files::Entry& entry : entries) {
        const std::string numbers = path::stem(entry.name);
        // Only what is named as copies are; anything else is not ours.
        if (path::extension(entry.name) != copyEnding || !isNumber(path::stem(numbers)) ||
            path::extension(numbers).size() < 2 || !isNumber(path::extension(numbers).substr(1)))
            continue;
        const std::string base = path::join(folder, path::stem(numbers));
        const auto isThere = [&](std::string_view ending) {
            return files::fileExists(base + std::string(ending));
        };
        if (isThere(logEnding) || isThere(asideEnding)) continue;
        ifPossible([&] { files::remove(path::join(folder, entry.name)); });
    }
}

LoadedSet JournalFile::read() const {
    if (!isUnderstood()) throw platform::RuntimeError(platform::error::fileError, log_.problem);
    LoadedSet loaded = readSet(copyFile(log_.copy), {});
    loaded.strayAssignments = 0;  // whoever opened the set was told of them
    OpenSet& set = loaded.set;
    const auto isIn = [](int number, int first, int last) { return number >= first && number <= last; };
    for (const auto& [row, region, classIndex] : log_.labels) {
        if (!isIn(row, 1, set.sampleCount()) || !isIn(region, 0, set.regionCount()) ||
            !isIn(classIndex, 0, std::max(set.classCount() - 1, 0)))
            throw notUnderstood(logFile());
        set.assign(row, region, classIndex);
    }
    for (const auto& [row, rectangle] : log_.regions) {
        if (!isIn(row, 1, set.regionCount())) throw notUnderstood(logFile());
        loaded.rectangles[static_cast<std::size_t>(row - 1)] = rectangle;
    }
    set.setUnchanged(false);
    return loaded;
}

std::string JournalFile::setAside() {
    const std::string aside = base_ + std::string(asideEnding);
    files::replace(aside, own_->read());
    own_->remove();
    return aside;
}

// The log first: without it the copies are nothing.
void JournalFile::remove() {
    ifPossible([&] { own_->remove(); });
    own_.reset();
    for (const int number : {copies_, copies_ + 1})
        if (number > 0) ifPossible([&] { files::remove(copyFile(number)); });
}

}  // namespace editor
