#include <gmock/gmock.h>

#include "platform/dialogs.h"
#include "tests/support/initialise.h"

int main(int argc, char** argv) {
    testing::InitGoogleMock(&argc, argv);
    support::initialise();
    // Where no test waits for a message, a message is a fault: nobody is there to press its buttons.
    platform::setMessageHandler([](platform::Form*, const platform::Message& message) {
        ADD_FAILURE() << "unexpected message: " << message.text;
        return platform::message::cancel;
    });
    return RUN_ALL_TESTS();
}
