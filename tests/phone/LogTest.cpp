#include "phone/device/Log.h"

#include "phone/device/RunLoop.h"

#include <gtest/gtest.h>

namespace {

TEST(Log, TellsTimesInWholeMicroseconds) {
    for (int i = 0; i < 3; ++i) {
        phone::RunLoop::main().advance(0.1); // adds up to a little more than 0.3
    }

    phone::Log::shared().add("file", {{"path", "/Library"}});

    EXPECT_EQ(phone::Log::shared().lines(), "{\"t\":0.3,\"what\":\"file\",\"path\":\"/Library\"}\n");
}

} // namespace
