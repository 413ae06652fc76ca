#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

/// The language of the scripts that the built-in kernel runs (docs/KERNEL.md): one command a line, from the
/// first to the last.
namespace kernel {

/// Where a command gets a text from.
struct Value {
    std::string name;     ///< of a parameter; empty when the text stands in the script itself
    std::string element;  ///< of that parameter
    std::string text;     ///< as it stands in the script
    /// As the user knows it from the script.
    std::string spelled() const { return name.empty() ? '"' + text + '"' : name + '[' + element + ']'; }
};

enum class Command { read, cut, write };

struct Statement {
    int line = 0;  ///< in the script, from 1
    Command command = Command::read;
    std::size_t target = 0;     ///< the picture that is made (read, cut), counted from 0
    std::size_t source = 0;     ///< the picture that is taken (cut, write)
    std::vector<Value> values;  ///< the file (read, write), or X, Y, dX and dY (cut)
};

struct Script {
    std::vector<Statement> statements;
    std::size_t pictures = 0;  ///< that they make; each is made before it is taken
};

/// RuntimeError typeMismatch for the first fault, with its line.
Script parseScript(std::string_view text);

/// What a script's errors begin with.
std::string inLine(int line);

}  // namespace kernel
