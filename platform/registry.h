#pragma once

#include <memory>
#include <optional>
#include <string>

namespace platform {

/// The settings of one application: texts under section and key, kept by the system for the user. The
/// empty section is the application's own level. Names ignore case.
class Registry {
  public:
    /// `root` is the application's place, "Software\Veltor2" for the program itself.
    explicit Registry(const std::string& root);
    ~Registry();
    Registry(const Registry&) = delete;
    Registry& operator=(const Registry&) = delete;

    /// Empty when there is no such value or it is no text.
    std::optional<std::string> read(const std::string& section, const std::string& key) const;
    /// RuntimeError fileError when the system refuses.
    void write(const std::string& section, const std::string& key, const std::string& value);
    /// Removes the whole application, with all sections.
    void removeAll();

    struct Native;

  private:
    std::unique_ptr<Native> native_;
};

}  // namespace platform
