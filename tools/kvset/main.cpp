#include <algorithm>
#include <exception>
#include <iostream>

#include "platform/console.h"
#include "tools/kvset/commands.h"

namespace kvset {

namespace {

constexpr int failed = 2;

constexpr const char* help =
    R"(kvset - Stichproben auf der Befehlszeile

  kvset create DIR SET.kvs   legt eine Stichprobe an: eine Klasse je Unterverzeichnis von DIR, ein Element je Datei darin
  kvset info SET.kvs         zeigt die Anzahlen und die Elemente je Klasse und Bereich
  kvset check SET.kvs        sucht fehlende Bilder, Klassen, die es nicht gibt, und Einträge, die nicht passen

  --base DIR   Verzeichnis, auf das sich die Bildpfade beziehen; ohne Angabe das Verzeichnis über "TestSets",
               wenn die Stichprobe darin liegt, sonst keines (volle Pfade)
  --force      create: eine vorhandene Stichprobe überschreiben
  --json       info: Ausgabe für Programme
  --help, --version

Ergebnis: 0 in Ordnung, 1 check hat etwas gefunden, 2 Fehler.
)";

struct Command {
    const char* name;
    std::size_t names;
    int (*run)(const Arguments&, std::ostream&);
};
constexpr Command commands[] = {{"create", 2, create}, {"info", 1, info}, {"check", 1, check}};

Arguments parse(const std::vector<std::string>& texts) {
    Arguments arguments;
    for (std::size_t i = 0; i < texts.size(); ++i) {
        if (texts[i] == "--json") {
            arguments.json = true;
        } else if (texts[i] == "--force") {
            arguments.force = true;
        } else if (texts[i] == "--base") {
            if (++i == texts.size()) throw UsageError("Hinter --base fehlt das Verzeichnis.");
            arguments.base = texts[i];
        } else if (texts[i].starts_with("-")) {
            throw UsageError("Die Option \"" + texts[i] + "\" ist unbekannt.");
        } else {
            arguments.names.push_back(texts[i]);
        }
    }
    return arguments;
}

int run(const std::vector<std::string>& texts) {
    if (texts.empty()) throw UsageError("Es fehlt ein Befehl.");
    if (std::find(texts.begin(), texts.end(), "--help") != texts.end()) {
        std::cout << help;
        return 0;
    }
    if (std::find(texts.begin(), texts.end(), "--version") != texts.end()) {
        std::cout << "kvset " << STICH_VERSION << '\n';
        return 0;
    }
    Arguments arguments = parse(texts);
    for (const Command& command : commands) {
        if (arguments.names.empty() || arguments.names[0] != command.name) continue;
        arguments.names.erase(arguments.names.begin());
        if (arguments.names.size() != command.names)
            throw UsageError(std::string("Der Befehl \"") + command.name + "\" erwartet " +
                             counted(command.names, "Angabe.", "Angaben."));
        return command.run(arguments, std::cout);
    }
    throw UsageError("Der Befehl ist unbekannt.");
}

}  // namespace

}  // namespace kvset

int platform::consoleMain(const std::vector<std::string>& arguments) {
    int result = kvset::failed;
    try {
        result = kvset::run(arguments);
    } catch (const kvset::UsageError& problem) {
        std::cerr << "kvset: " << problem.what() << " \"kvset --help\" zeigt die Möglichkeiten.\n";
    } catch (const std::exception& problem) {
        std::cerr << "kvset: " << problem.what() << '\n';
    }
    if (!std::cout.flush()) {
        std::cerr << "kvset: Die Ausgabe kann nicht geschrieben werden.\n";
        return kvset::failed;
    }
    return result;
}
