#pragma once

#include <algorithm>
#include <cstdint>
#include <memory>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

#include "platform/errors.h"
#include "platform/text.h"

namespace model {

/// An ordered list whose records can be reached by their position and, where they were added under one, by a
/// key. Positions count from 1 in the order of insertion; a removal moves the later ones down. Keys ignore
/// case. A record stays at its place in memory until it is removed.
template <class Record>
class KeyedList {
    template <class Value, class Base>
    class Iterator {
      public:
        explicit Iterator(Base at) : at_(at) {}
        Value& operator*() const { return **at_; }
        Value* operator->() const { return at_->get(); }
        Iterator& operator++() {
            ++at_;
            return *this;
        }
        friend bool operator==(const Iterator&, const Iterator&) = default;

      private:
        Base at_;
    };

    template <class It>
    struct Enumerator {
        It first, last;
        It begin() const { return first; }
        It end() const { return last; }
    };

    using Records = std::vector<std::unique_ptr<Record>>;

  public:
    using iterator = Iterator<Record, typename Records::iterator>;
    using const_iterator = Iterator<const Record, typename Records::const_iterator>;

    /// RuntimeError subscriptOutOfRange for a position outside 1..`Count` or an unknown key.
    Record& Item(std::int32_t position) { return *records_[checked(position)]; }
    const Record& Item(std::int32_t position) const { return *records_[checked(position)]; }
    Record& Item(std::string_view key) { return *keyed(key); }
    const Record& Item(std::string_view key) const { return *keyed(key); }

    std::int32_t Count() const { return static_cast<std::int32_t>(records_.size()); }

    /// Errors as of `Item`.
    void Remove(std::int32_t position) {
        erase(records_.begin() + static_cast<std::ptrdiff_t>(checked(position)));
    }
    void Remove(std::string_view key) {
        const Record* record = keyed(key);
        erase(std::find_if(records_.begin(), records_.end(),
                           [&](const auto& held) { return held.get() == record; }));
    }

    void Clear() {
        records_.clear();
        keys_.clear();
    }

    void Reserve(std::size_t count) { records_.reserve(count); }

    /// The records in the order of insertion, for a range-for; so does the list itself.
    Enumerator<iterator> NewEnum() { return {begin(), end()}; }
    Enumerator<const_iterator> NewEnum() const { return {begin(), end()}; }
    iterator begin() { return iterator(records_.begin()); }
    iterator end() { return iterator(records_.end()); }
    const_iterator begin() const { return const_iterator(records_.begin()); }
    const_iterator end() const { return const_iterator(records_.end()); }

  protected:
    /// A new record at the end; without a key when `key` is empty. RuntimeError duplicateKey, and nothing
    /// changes, when the key is in use.
    Record& append(std::string_view key) {
        std::string folded = platform::text::foldCase(key);
        auto record = std::make_unique<Record>();
        if (!folded.empty() && !keys_.emplace(folded, record.get()).second)
            throw platform::RuntimeError(platform::error::duplicateKey,
                                         "Der Schlüssel \"" + std::string(key) + "\" ist schon vergeben.");
        return *records_.emplace_back(std::move(record));
    }

  private:
    std::size_t checked(std::int32_t position) const {
        if (position < 1 || position > Count())
            throw platform::RuntimeError(platform::error::subscriptOutOfRange,
                                         "Die Position " + std::to_string(position) +
                                             " liegt nicht zwischen 1 und " + std::to_string(Count()) + ".");
        return static_cast<std::size_t>(position) - 1;
    }

    Record* keyed(std::string_view key) const {
        const auto found = keys_.find(platform::text::foldCase(key));
        if (found == keys_.end())
            throw platform::RuntimeError(platform::error::subscriptOutOfRange,
                                         "Den Schlüssel \"" + std::string(key) + "\" gibt es nicht.");
        return found->second;
    }

    void erase(typename Records::iterator record) {
        std::erase_if(keys_, [&](const auto& key) { return key.second == record->get(); });
        records_.erase(record);
    }

    Records records_;
    std::unordered_map<std::string, Record*> keys_;  // folded keys
};

}  // namespace model
