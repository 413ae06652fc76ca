#pragma once

#include <optional>
#include <ostream>
#include <stdexcept>
#include <string>
#include <vector>

namespace kvset {

/// The command line, taken apart.
struct Arguments {
    std::vector<std::string> names;  ///< what is no option
    bool json = false;
    bool force = false;
    std::optional<std::string> base;
};

/// A command line that nobody can follow; its text is for the user.
class UsageError : public std::runtime_error {
  public:
    using std::runtime_error::runtime_error;
};

/// The commands write what they have to say to `out` and return the exit code. UsageError, RuntimeError.
int create(const Arguments& arguments, std::ostream& out);
int info(const Arguments& arguments, std::ostream& out);
int check(const Arguments& arguments, std::ostream& out);

/// Base directory of the set's relative paths: the one given, else the data directory when the set lies in
/// its directory of sets, else none.
std::string baseDirectory(const Arguments& arguments, const std::string& set);

/// "1 Klasse", "2 Klassen".
std::string counted(std::size_t count, const char* one, const char* many);

}  // namespace kvset
