#include "phone/server/RequestGuard.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

using namespace phone;
using testing::HasSubstr;
using testing::Optional;

TEST(RequestGuard, LetsProgramsOfThisMachinePass) {
    for (const char* host : {"127.0.0.1:8100", "localhost:8100", "LOCALHOST:8100"}) {
        EXPECT_EQ(whyRefused({.host = host, .origin = "", .site = ""}, 8100), std::nullopt) << host;
    }
}

TEST(RequestGuard, LetsItsOwnPagePass) {
    EXPECT_EQ(whyRefused({.host = "localhost:8100", .origin = "http://localhost:8100", .site = "same-origin"}, 8100),
              std::nullopt);
}

TEST(RequestGuard, NeedsNoPortWhereItIsTheUsualOne) {
    EXPECT_EQ(whyRefused({.host = "localhost", .origin = "", .site = "none"}, 80), std::nullopt);
    EXPECT_NE(whyRefused({.host = "localhost", .origin = "", .site = "none"}, 8100), std::nullopt);
}

TEST(RequestGuard, RefusesNamesThatAreNotThisMachines) {
    for (const char* host :
         {"", "[::1]:8100", "evil.example:8100", "127.0.0.1.evil.example:8100", "127.0.0.1:8101", "localhost."}) {
        EXPECT_THAT(whyRefused({.host = host, .origin = "", .site = ""}, 8100),
                    Optional(HasSubstr("127.0.0.1:8100 alone")))
            << host;
    }
}

TEST(RequestGuard, RefusesPagesOfElsewhere) {
    for (const char* origin : {"http://evil.example", "null", "https://localhost:8100", "http://localhost:8101"}) {
        EXPECT_THAT(whyRefused({.host = "localhost:8100", .origin = origin, .site = ""}, 8100),
                    Optional(HasSubstr("pages of other servers")))
            << origin;
    }
}

TEST(RequestGuard, RefusesWhatTheBrowserCallsCrossSite) {
    for (const char* site : {"cross-site", "same-site"}) {
        EXPECT_NE(whyRefused({.host = "localhost:8100", .origin = "", .site = site}, 8100), std::nullopt) << site;
    }
}
