#include "kernel/script.h"

#include <algorithm>
#include <span>
#include <unordered_map>

#include "platform/document_text.h"
#include "platform/errors.h"
#include "platform/text.h"

namespace kernel {

namespace {

using platform::profile::isBlank;
using platform::profile::trimmed;

/// How a command is written, which is also what the user is told: <Ziel> is the name of the picture that it
/// makes, <Bild> that of one made before, any other word in brackets a value.
struct Form {
    Command command;
    std::string_view shape;
};
constexpr Form forms[] = {
    {Command::read, "Lies <Ziel> von <Datei>"},
    {Command::cut, "Schneide <Ziel> aus <Bild> bei <X> <Y> mit <dX> <dY>"},
    {Command::write, "Schreibe <Bild> nach <Datei>"},
};

std::string quoted(std::string_view word) {
    return '"' + std::string(word) + '"';
}

[[noreturn]] void refuse(int line, const std::string& reason) {
    throw platform::RuntimeError(platform::error::typeMismatch, inLine(line) + reason);
}

/// Takes the next word off the line; empty at its end or before a comment. A text in quotes keeps them.
std::string_view takeWord(std::string_view& rest, int line) {
    rest = trimmed(rest);
    std::size_t length = 0;
    if (rest.starts_with('"')) {
        length = rest.find('"', 1);
        if (length == std::string_view::npos) refuse(line, "Das Anführungszeichen wird nicht geschlossen.");
        ++length;
    } else {
        while (length < rest.size() && !isBlank(rest[length]) && rest[length] != ';') ++length;
    }
    const std::string_view word = rest.substr(0, length);
    rest.remove_prefix(length);
    return word;
}

std::vector<std::string_view> wordsOf(std::string_view text, int line) {
    std::vector<std::string_view> words;
    for (;;) {
        const std::string_view word = takeWord(text, line);
        if (word.empty()) return words;
        words.push_back(word);
    }
}

bool isName(std::string_view word) {
    return !word.empty() && word.find_first_of("\"[]<>") == std::string_view::npos;
}

Value valueOf(std::string_view word, int line) {
    if (word.starts_with('"')) return {{}, {}, std::string(word.substr(1, word.size() - 2))};
    if (platform::text::parseInt32(word)) return {{}, {}, std::string(word)};
    const std::size_t bracket = std::min(word.find('['), word.size());
    const std::string_view name = word.substr(0, bracket);
    const std::string_view element = word.substr(bracket);
    if (!isName(name) || element.size() < 3 || !element.ends_with(']') ||
        !isName(element.substr(1, element.size() - 2)))
        refuse(line, quoted(word) + " ist kein Wert: weder eine ganze Zahl noch ein Text in " +
                         "Anführungszeichen noch ein Parameter wie Parameter0[0].");
    return {std::string(name), std::string(element.substr(1, element.size() - 2)), {}};
}

class Parser {
  public:
    Script take(std::string_view text) {
        for (int line = 1; !text.empty(); ++line) {
            const std::size_t end = std::min(text.find('\n'), text.size());
            takeLine(text.substr(0, end), line);
            text.remove_prefix(std::min(end + 1, text.size()));
        }
        script_.pictures = pictures_.size();
        return std::move(script_);
    }

  private:
    void takeLine(std::string_view text, int line) {
        const auto words = wordsOf(text, line);
        if (words.empty()) return;
        for (const auto& [command, shape] : forms) {
            const auto wanted = wordsOf(shape, line);
            if (!platform::text::equalNoCase(words[0], wanted[0])) continue;
            if (!fits(words, wanted)) refuse(line, "Erwartet wird: " + std::string(shape));
            add(words, wanted, {line, command, 0, 0, {}});
            return;
        }
        refuse(line, "Den Befehl " + quoted(words[0]) + " gibt es nicht.");
    }

    /// Whether there are as many words as wanted, and the fixed ones are right.
    static bool fits(std::span<const std::string_view> words, std::span<const std::string_view> wanted) {
        return std::equal(words.begin(), words.end(), wanted.begin(), wanted.end(),
                          [](std::string_view word, std::string_view want) {
                              return want.starts_with('<') || platform::text::equalNoCase(word, want);
                          });
    }

    void add(std::span<const std::string_view> words, std::span<const std::string_view> wanted,
             Statement statement) {
        std::string_view made;
        for (std::size_t i = 1; i < words.size(); ++i) {
            if (wanted[i] == "<Ziel>")
                made = words[i];
            else if (wanted[i] == "<Bild>")
                statement.source = known(words[i], statement.line);
            else if (wanted[i].starts_with('<'))
                statement.values.push_back(valueOf(words[i], statement.line));
        }
        // Named last, as a picture may be cut out of the one that had its name before.
        if (!made.empty()) statement.target = named(made, statement.line);
        script_.statements.push_back(std::move(statement));
    }

    std::size_t known(std::string_view name, int line) const {
        const auto found = pictures_.find(platform::text::foldCase(name));
        if (found == pictures_.end()) refuse(line, "Ein Bild " + quoted(name) + " gibt es hier noch nicht.");
        return found->second;
    }

    std::size_t named(std::string_view name, int line) {
        if (!isName(name)) refuse(line, quoted(name) + " ist kein Name für ein Bild.");
        return pictures_.try_emplace(platform::text::foldCase(name), pictures_.size()).first->second;
    }

    Script script_;
    std::unordered_map<std::string, std::size_t> pictures_;  // by folded name
};

}  // namespace

Script parseScript(std::string_view text) {
    Script script = Parser().take(text);
    if (script.statements.empty())
        throw platform::RuntimeError(platform::error::typeMismatch, "Das Skript enthält keinen Befehl.");
    return script;
}

std::string inLine(int line) {
    return "Zeile " + std::to_string(line) + ": ";
}

}  // namespace kernel
