#include "platform/script_library.h"

#include "platform/errors.h"
#include "platform/files.h"
#include "platform/path.h"
#include "platform/win32/handle.h"
#include "platform/win32/native.h"
#include "platform/win32/wide.h"

namespace platform {

namespace {

struct CloseLibrary {
    void operator()(HMODULE module) const { ::FreeLibrary(module); }
};
using UniqueLibrary = win32::Unique<HMODULE, CloseLibrary>;

[[noreturn]] void refuse(const std::string& reason) {
    throw RuntimeError(error::fileError,
                       std::string(ScriptLibrary::fileName) + " kann nicht benutzt werden: " + reason);
}

/// By its full path, and what it needs itself from its own directory or the system's: a file of that name
/// which lies elsewhere must not come in.
UniqueLibrary loaded(const std::string& path) {
    const HMODULE module = ::LoadLibraryExW(wide(path).c_str(), nullptr,
                                            LOAD_LIBRARY_SEARCH_DLL_LOAD_DIR | LOAD_LIBRARY_SEARCH_SYSTEM32);
    if (!module) refuse(lastErrorText(::GetLastError()));
    return UniqueLibrary(module);
}

/// The entry points, all of which are needed.
struct EntryPoints {
    explicit EntryPoints(HMODULE module) {
        find(module, "kvKernelCreate", create);
        find(module, "kvKernelSetParameter", setParameter);
        find(module, "kvKernelRun", run);
        find(module, "kvKernelDestroy", destroy);
    }

    void*(WINAPI* create)(HWND outputBox, const wchar_t* programDirectory);
    BOOL(WINAPI* setParameter)
    (void* kernel, const wchar_t* name, const wchar_t* element, const wchar_t* value);
    BOOL(WINAPI* run)(void* kernel, const wchar_t* script);
    void(WINAPI* destroy)(void* kernel);

  private:
    template <class Function>
    static void find(HMODULE module, const char* name, Function& function) {
        const FARPROC found = ::GetProcAddress(module, name);
        if (!found) refuse(std::string("der Einsprungpunkt ") + name + " fehlt.");
        function = reinterpret_cast<Function>(reinterpret_cast<void*>(found));
    }
};

}  // namespace

struct ScriptLibrary::Native {
    Native(UniqueLibrary loadedLibrary, HWND outputBox, const std::string& programDirectory)
        : library(std::move(loadedLibrary)),
          entry(library.get()),
          kernel(entry.create(outputBox, wide(programDirectory).c_str())) {
        if (!kernel) refuse("kvKernelCreate lieferte keinen Kern.");
    }
    ~Native() { entry.destroy(kernel); }
    Native(const Native&) = delete;
    Native& operator=(const Native&) = delete;

    UniqueLibrary library;
    EntryPoints entry;
    void* kernel;
};

ScriptLibrary::ScriptLibrary(std::unique_ptr<Native> native) : native_(std::move(native)) {}
ScriptLibrary::~ScriptLibrary() = default;

std::unique_ptr<ScriptLibrary> ScriptLibrary::load(const std::string& programDirectory, TextBox& outputBox) {
    const std::string path = files::fullPath(path::join(programDirectory, fileName));
    if (!files::fileExists(path)) return nullptr;
    return std::unique_ptr<ScriptLibrary>(new ScriptLibrary(
        std::make_unique<Native>(loaded(path), outputBox.native().window, programDirectory)));
}

bool ScriptLibrary::setParameter(const std::string& name, const std::string& element,
                                 const std::string& value) {
    return native_->entry.setParameter(native_->kernel, wide(name).c_str(), wide(element).c_str(),
                                       wide(value).c_str()) != FALSE;
}

bool ScriptLibrary::run(const std::string& script) {
    return native_->entry.run(native_->kernel, wide(script).c_str()) != FALSE;
}

}  // namespace platform
