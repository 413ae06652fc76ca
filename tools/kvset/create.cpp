#include "model/kvTamSampleSet.h"
#include "model/set_file_names.h"
#include "platform/errors.h"
#include "platform/files.h"
#include "platform/path.h"
#include "platform/text.h"
#include "tools/kvset/commands.h"

namespace kvset {

namespace files = platform::files;
namespace path = platform::path;

std::string baseDirectory(const Arguments& arguments, const std::string& set) {
    if (arguments.base) return files::fullPath(*arguments.base);
    const std::string directory = path::directory(files::fullPath(set));
    const bool inSets =
        platform::text::equalNoCase(path::fileName(directory), model::set_file::setsDirectory);
    return inSets ? path::directory(directory) : std::string();
}

std::string counted(std::size_t count, const char* one, const char* many) {
    return std::to_string(count) + ' ' + (count == 1 ? one : many);
}

int create(const Arguments& arguments, std::ostream& out) {
    const std::string& name = arguments.names[1];
    // An older set holds labels that took hours.
    if (files::exists(name) && !arguments.force)
        throw platform::RuntimeError(
            platform::error::fileError,
            "Die Datei \"" + name + "\" ist schon vorhanden; --force überschreibt sie.");
    model::kvTamSampleSet set;
    set.AppPath(baseDirectory(arguments, name));
    set.CreateFromDirectory(arguments.names[0]);
    set.Save(files::fullPath(name));
    out << name << ": "
        << counted(static_cast<std::size_t>(set.kvtamSamples().Count()), "Element", "Elemente") << " in "
        << counted(static_cast<std::size_t>(set.kvtamClasses().Count()), "Klasse", "Klassen") << ".\n";
    return 0;
}

}  // namespace kvset
