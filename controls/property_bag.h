#pragma once

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <functional>
#include <memory>
#include <string>
#include <string_view>
#include <utility>
#include <variant>
#include <vector>

#include "platform/control.h"
#include "platform/errors.h"
#include "platform/surface.h"

namespace controls {

/// A picture as properties hand it around; empty for none.
using PictureObject = std::shared_ptr<const platform::Surface>;

/// Told the bag's key of each persistent property that was written.
using PropertyChanged = std::function<void(std::string_view key)>;

/// What a host keeps of a control between two lives of it: values under the names of their properties, in
/// the order in which they were written.
class PropertyBag {
  public:
    using Value = std::variant<bool, std::int32_t, std::string, platform::Font, PictureObject>;

    /// The value kept under the key, or `missing` when there is none. RuntimeError typeMismatch for a value
    /// of another type: a wrong one shall not pass for a default.
    template <class T>
    T read(std::string_view key, const T& missing) const {
        const std::size_t place = find(key);
        if (place == entries_.size()) return missing;
        if (const T* value = std::get_if<T>(&entries_[place].second)) return *value;
        throw platform::RuntimeError(platform::error::typeMismatch,
                                     "Die Eigenschaft \"" + std::string(key) + "\" hat einen falschen Typ.");
    }

    /// Keeps the value in place of the one that was there.
    void write(std::string_view key, Value value) {
        const std::size_t place = find(key);
        if (place == entries_.size()) entries_.emplace_back(key, Value());
        entries_[place].second = std::move(value);
    }

    const std::vector<std::pair<std::string, Value>>& entries() const { return entries_; }

  private:
    std::size_t find(std::string_view key) const {
        const auto found = std::find_if(entries_.begin(), entries_.end(),
                                        [&](const auto& entry) { return entry.first == key; });
        return static_cast<std::size_t>(found - entries_.begin());
    }

    std::vector<std::pair<std::string, Value>> entries_;
};

}  // namespace controls
