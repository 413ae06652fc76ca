#include "model/kvTamSample.h"

#include "platform/files.h"
#include "platform/path.h"

namespace model {

bool kvTamSample::FileFound() const {
    return platform::files::fileExists(fileName_);
}
std::string kvTamSample::File() const {
    return platform::path::fileName(fileName_);
}
std::string kvTamSample::Path() const {
    return platform::path::directory(fileName_);
}

}  // namespace model
