#include "model/set_file_findings.h"
#include "platform/document.h"
#include "platform/files.h"
#include "tools/kvset/commands.h"

namespace kvset {

int check(const Arguments& arguments, std::ostream& out) {
    const std::string& name = arguments.names[0];
    const auto document = platform::ProfileDocument::load(platform::files::fullPath(name));
    const std::vector<std::string> found =
        model::set_file::findings(document, baseDirectory(arguments, name));
    for (const std::string& finding : found) out << finding << '\n';
    out << name << ": " << (found.empty() ? "in Ordnung" : counted(found.size(), "Befund", "Befunde"))
        << ".\n";
    return found.empty() ? 0 : 1;
}

}  // namespace kvset
