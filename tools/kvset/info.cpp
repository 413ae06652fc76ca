#include <algorithm>
#include <iomanip>
#include <sstream>

#include "model/kvTamSampleSet.h"
#include "platform/errors.h"
#include "platform/files.h"
#include "platform/text.h"
#include "tools/kvset/commands.h"

namespace kvset {

namespace {

using model::kvTamClass;
using model::kvTamROI;
using model::kvTamSample;
using model::kvTamSampleSet;

/// Samples per class and region. The last row counts those whose class the set does not have.
using Table = std::vector<std::vector<int>>;

Table countSamples(const kvTamSampleSet& set) {
    const auto classes = static_cast<std::size_t>(set.kvtamClasses().Count());
    const auto regions = static_cast<std::size_t>(set.kvtamROIs().Count());
    Table table(classes + 1, std::vector<int>(regions));
    for (const kvTamSample& sample : set.kvtamSamples()) {
        for (std::size_t region = 0; region < regions; ++region) {
            const std::int32_t number = region < sample.ItemClasses.size() ? sample.ItemClasses[region] : 0;
            const bool known = number >= 1 && number <= set.kvtamClasses().Count();
            ++table[known ? static_cast<std::size_t>(number) - 1 : classes][region];
        }
    }
    return table;
}

bool hasStrays(const Table& table) {
    return std::any_of(table.back().begin(), table.back().end(), [](int count) { return count != 0; });
}

/// Columns on the screen, as far as one character takes one.
std::size_t width(const std::string& text) {
    return static_cast<std::size_t>(std::count_if(
        text.begin(), text.end(), [](char c) { return (static_cast<unsigned char>(c) & 0xC0) != 0x80; }));
}

/// Left-aligned first column, the others right-aligned, each as wide as its widest text.
void printTable(const std::vector<std::vector<std::string>>& rows, std::ostream& out) {
    std::vector<std::size_t> widths(rows.front().size());
    for (const auto& row : rows)
        for (std::size_t i = 0; i < row.size(); ++i) widths[i] = std::max(widths[i], width(row[i]));
    for (const auto& row : rows) {
        for (std::size_t i = 0; i < row.size(); ++i) {
            const std::string fill(widths[i] - width(row[i]), ' ');
            if (i == 0)
                out << row[i] << (row.size() > 1 ? fill : "");
            else
                out << "  " << fill << row[i];
        }
        out << '\n';
    }
}

void printText(const std::string& name, const kvTamSampleSet& set, std::ostream& out) {
    const Table table = countSamples(set);
    out << "Datei:            " << name << "\nElemente:         " << set.kvtamSamples().Count()
        << "\nKlassen:          " << set.kvtamClasses().Count()
        << "\nBereiche:         " << set.kvtamROIs().Count() << "\nStandardklasse:   " << set.StdClass()
        << "\nDoppelte Dateien: " << (set.DoubleSelection() ? "ja" : "nein") << "\n\n";
    std::vector<std::vector<std::string>> rows{{"Klasse"}};
    for (const kvTamROI& roi : set.kvtamROIs()) rows[0].push_back(roi.Name);
    const auto add = [&](const std::string& title, const std::vector<int>& counts) {
        rows.push_back({title});
        for (const int count : counts) rows.back().push_back(std::to_string(count));
    };
    const std::size_t digits = std::to_string(set.kvtamClasses().Count()).size();
    std::size_t row = 0;
    for (const kvTamClass& entry : set.kvtamClasses()) {
        const std::string number = std::to_string(row + 1);
        add(std::string(digits - number.size(), ' ') + number + " " + entry.Name, table[row]);
        ++row;
    }
    if (hasStrays(table)) add("keine dieser Klassen", table.back());
    printTable(rows, out);
}

/// A JSON string. Text that is no UTF-8 (a file name may hold half a character) is written in escapes.
std::string quoted(const std::string& text) {
    const bool plain = platform::text::isUtf8(text);
    std::ostringstream json;
    json << '"' << std::hex << std::setfill('0');
    const auto put = [&](unsigned unit) {
        if (unit == '"' || unit == '\\')
            json << '\\' << static_cast<char>(unit);
        else if (unit < 0x20 || (unit > 0x7E && !plain))
            json << "\\u" << std::setw(4) << unit;
        else
            json << static_cast<char>(unit);
    };
    if (plain)
        for (const char c : text) put(static_cast<unsigned char>(c));
    else
        for (const char16_t unit : platform::text::toUtf16(text)) put(unit);
    return json.str() + '"';
}

std::string list(const std::vector<int>& numbers) {
    std::string json;
    for (const int number : numbers) json += (json.empty() ? "" : ", ") + std::to_string(number);
    return "[" + json + "]";
}

void printJson(const std::string& name, const kvTamSampleSet& set, std::ostream& out) {
    const Table table = countSamples(set);
    out << "{\n  \"file\": " << quoted(name) << ",\n  \"samples\": " << set.kvtamSamples().Count()
        << ",\n  \"standardClass\": " << set.StdClass()
        << ",\n  \"doubleSelection\": " << (set.DoubleSelection() ? "true" : "false")
        << ",\n  \"regions\": [";
    const char* separator = "\n    ";
    for (const kvTamROI& roi : set.kvtamROIs()) {
        out << separator << "{\"name\": " << quoted(roi.Name)
            << ", \"description\": " << quoted(roi.Description) << ", \"x\": " << roi.X
            << ", \"y\": " << roi.Y << ", \"width\": " << roi.dX << ", \"height\": " << roi.dY << "}";
        separator = ",\n    ";
    }
    out << "\n  ],\n  \"classes\": [";
    separator = "\n    ";
    std::size_t row = 0;
    for (const kvTamClass& entry : set.kvtamClasses()) {
        out << separator << "{\"name\": " << quoted(entry.Name)
            << ", \"description\": " << quoted(entry.Description)
            << ", \"samplesPerRegion\": " << list(table[row++]) << "}";
        separator = ",\n    ";
    }
    out << "\n  ],\n  \"strayPerRegion\": " << list(table.back()) << "\n}\n";
}

}  // namespace

int info(const Arguments& arguments, std::ostream& out) {
    const std::string& name = arguments.names[0];
    kvTamSampleSet set;
    set.AppPath(baseDirectory(arguments, name));
    if (!set.Load(platform::files::fullPath(name)))
        throw platform::RuntimeError(platform::error::fileNotFound,
                                     "Die Datei \"" + name + "\" wurde nicht gefunden.");
    (arguments.json ? printJson : printText)(name, set, out);
    return 0;
}

}  // namespace kvset
