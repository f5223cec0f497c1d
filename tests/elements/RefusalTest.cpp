#include "phone/elements/Refusal.h"

#include <gtest/gtest.h>

namespace phone::webdriver {

TEST(Refusal, SaysWhatTheProtocolCallsIt) {
    const Refusal refusal(Error::StaleElementReference, "it has gone");

    EXPECT_STREQ(refusal.name(), "stale element reference");
    EXPECT_EQ(refusal.httpStatus(), 404);
    EXPECT_STREQ(refusal.what(), "it has gone");
}

TEST(Refusal, KnowsTheStatusOfEachKind) {
    EXPECT_EQ(httpStatusOf(Error::InvalidSelector), 400);
    EXPECT_EQ(httpStatusOf(Error::NoSuchElement), 404);
    EXPECT_EQ(httpStatusOf(Error::UnknownMethod), 405);
    EXPECT_EQ(httpStatusOf(Error::Timeout), 408);
    EXPECT_EQ(httpStatusOf(Error::UnexpectedAlertOpen), 500);
    EXPECT_STREQ(nameOf(Error::UnsupportedOperation), "unsupported operation");
    EXPECT_STREQ(nameOf(Error::ElementClickIntercepted), "element click intercepted");
}

} // namespace phone::webdriver
