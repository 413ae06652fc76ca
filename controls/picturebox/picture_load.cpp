#include "controls/picturebox/picture_load.h"

#include <utility>

namespace controls {

namespace {

constexpr int lookEvery = 30;  // milliseconds; whether it was given up

}  // namespace

void PictureLoad::run(const std::atomic<bool>& givenUp) {
    if (fetch) {
        while (!fetch->task->wait(lookEvery))
            if (givenUp) return;
        ready = std::move(*fetch->result);
    }
    if (ready && platform::files::version(fileName) == ready->version) {
        result.picture = std::move(ready);
        return;
    }
    if (givenUp) return;
    PictureBuffer buffer = ready ? std::move(ready->buffer) : spare ? std::move(*spare) : PictureBuffer();
    result = loadPicture(fileName, std::move(buffer), before);
}

}  // namespace controls
