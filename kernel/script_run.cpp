#include "kernel/script_run.h"

#include <algorithm>

#include "kernel/cutting.h"
#include "platform/errors.h"
#include "platform/path.h"
#include "platform/text.h"

namespace kernel {

namespace {

using platform::Rect;

/// What a name in the script stands for. A cut-out costs nothing until it is written.
struct Picture {
    std::shared_ptr<const platform::Raster> raster;
    Rect part;
};

std::string sizeOf(const Rect& part) {
    return std::to_string(part.width()) + " x " + std::to_string(part.height());
}

[[noreturn]] void refuse(const std::string& reason) {
    throw platform::RuntimeError(platform::error::typeMismatch, reason);
}

class Run {
  public:
    Run(const Script& script, const Parameters& parameters, const Surroundings& surroundings)
        : parameters_(parameters), surroundings_(surroundings), pictures_(script.pictures) {}

    void execute(const Statement& statement) {
        switch (statement.command) {
            case Command::read:
                return read(statement);
            case Command::cut:
                return cut(statement);
            case Command::write:
                return write(statement);
        }
    }

  private:
    void read(const Statement& statement) {
        const std::string path = pathOf(statement.values[0], "Rfile://");
        Picture& picture = pictures_[statement.target];
        picture = {};  // its memory may be needed for the new one
        picture.raster = surroundings_.read(path);
        picture.part = Rect::at(0, 0, picture.raster->size.width, picture.raster->size.height);
        read_.push_back(path);
    }

    void cut(const Statement& statement) {
        const auto& values = statement.values;
        const Area area{numberOf(values[0]), numberOf(values[1]), numberOf(values[2]), numberOf(values[3])};
        const Picture source = pictures_[statement.source];
        Rect part = clipped(area, {source.part.width(), source.part.height()});
        if (part.width() != area.dX || part.height() != area.dY)
            surroundings_.tell("Der Bereich ragt über das Bild hinaus; es bleiben " + sizeOf(part) +
                               " Pixel.");
        part = {part.left + source.part.left, part.top + source.part.top, part.right + source.part.left,
                part.bottom + source.part.top};
        pictures_[statement.target] = {source.raster, part};
    }

    void write(const Statement& statement) {
        const std::string path = pathOf(statement.values[0], "Wfile://");
        const bool isSource = std::any_of(read_.begin(), read_.end(), [&](const std::string& other) {
            return platform::text::equalNoCase(platform::path::normalise(path),
                                               platform::path::normalise(other));
        });
        if (isSource) refuse("Ein Bild, das gelesen wurde, wird nicht überschrieben: " + path);
        const Picture& picture = pictures_[statement.source];
        surroundings_.write(path, bitmapOf(*picture.raster, picture.part));
        surroundings_.tell("Geschrieben: " + path + " (" + sizeOf(picture.part) + ")");
    }

    std::string textOf(const Value& value) const {
        const std::string text = value.name.empty() ? value.text : parameters_.get(value.name, value.element);
        if (text.empty()) refuse(value.spelled() + " ist nicht gesetzt.");
        return text;
    }
    std::int32_t numberOf(const Value& value) const {
        return platform::text::toInt32(textOf(value), value.spelled());
    }
    /// A file is named by what is done with it and its full path.
    std::string pathOf(const Value& value, const std::string& purpose) const {
        const std::string text = textOf(value);
        if (!platform::text::equalNoCase(text.substr(0, purpose.size()), purpose))
            refuse(value.spelled() + " beginnt nicht mit " + purpose + ": " + text);
        const std::string path = text.substr(purpose.size());
        if (!platform::path::isAbsolute(path)) refuse(value.spelled() + " ist kein voller Pfad: " + text);
        return path;
    }

    const Parameters& parameters_;
    const Surroundings& surroundings_;
    std::vector<Picture> pictures_;
    std::vector<std::string> read_;  // paths
};

}  // namespace

void runScript(const Script& script, const Parameters& parameters, const Surroundings& surroundings) {
    Run run(script, parameters, surroundings);
    for (const Statement& statement : script.statements) {
        try {
            run.execute(statement);
        } catch (const platform::RuntimeError& error) {
            throw platform::RuntimeError(error.number(), inLine(statement.line) + error.description());
        }
    }
}

}  // namespace kernel
