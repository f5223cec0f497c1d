#include "phone/device/RootFolder.h"
#include "phone/foundation/WallClock.h"
#include "platform/foundation/NSArray.h"
#include "platform/foundation/NSDate.h"
#include "platform/foundation/NSIndexPath.h"
#include "platform/foundation/NSNumber.h"
#include "platform/foundation/NSTimeZone.h"
#include "tests/foundation/FoundationTest.h"

#include <ctime>

extern "C" {
id NSHomeDirectory();
id NSTemporaryDirectory();
}

namespace phone {
namespace {

constexpr double referenceDate = 978307200;

struct NSLocale : NSObject {
    static constexpr auto objc_name = "NSLocale";
};

class EnvironmentTest : public FoundationTest {
protected:
    struct NSUserDefaults : NSObject {
        static constexpr auto objc_name = "NSUserDefaults";
        using NSObject::NSObject;
        static NSUserDefaults standard() {
            return objc::sendClass<NSUserDefaults, "standardUserDefaults", NSUserDefaults>();
        }
    };
};

TEST_F(EnvironmentTest, HomeAndTemporaryFilesLieOnTheDevice) {
    EXPECT_EQ(text(objc::borrow<NSString>(NSHomeDirectory())), "/var/mobile");
    EXPECT_TRUE(text(objc::borrow<NSString>(NSTemporaryDirectory())).starts_with("/var/mobile/tmp"));
    EXPECT_FALSE(std::filesystem::is_empty(host("/var/mobile/tmp")));
}

TEST_F(EnvironmentTest, DefaultsAreKeptInTheRootFolder) {
    const auto defaults = NSUserDefaults::standard();
    defaults.send<"setObject:forKey:">("value"_ns, "key"_ns);

    EXPECT_TRUE((defaults.send<"synchronize", bool>()));

    bool found = false;
    for (const auto& entry : std::filesystem::recursive_directory_iterator(host("/var/mobile"))) {
        found = found || entry.path().string().find("/Defaults/") != std::string::npos;
    }
    EXPECT_TRUE(found);
}

TEST_F(EnvironmentTest, LanguageAndLocaleAreTheSettings) {
    speak("de-AT");

    EXPECT_EQ(text(objc::sendClass<NSLocale, "preferredLanguages", NSArray>().at<NSString>(0)), "de-AT");
    EXPECT_EQ(text(objc::sendClass<NSLocale, "currentLocale", NSObject>().send<"localeIdentifier", NSString>()),
              "de_AT");
}

class BerlinTest : public FoundationTest {
protected:
    BerlinTest() : FoundationTest("Europe/Berlin") {}
};

TEST_F(BerlinTest, TheTimeZoneIsTheSettings) {
    const std::time_t moment = 1772721432;
    std::tm local{};
    localtime_r(&moment, &local);

    EXPECT_EQ(text(NSTimeZone::defaultTimeZone().name()), "Europe/Berlin");
    EXPECT_EQ(local.tm_hour, 15);
    EXPECT_EQ(text(NSDate::now().description()), "2026-03-05 15:37:12 +0100");
}

TEST_F(EnvironmentTest, AStoppedClockStandsStill) {
    EXPECT_EQ(WallClock::now(), now);
    EXPECT_EQ(NSDate::now().sinceReferenceDate(), now - referenceDate);
    EXPECT_EQ(std::time(nullptr), static_cast<time_t>(now));
}

TEST_F(EnvironmentTest, SettingTheClockMovesEveryDate) {
    WallClock::set(now + 3600.25);

    EXPECT_EQ(NSDate::now().sinceReferenceDate(), now + 3600.25 - referenceDate);
}

TEST_F(EnvironmentTest, ARunningClockGoesOnFromWhereItWasSet) {
    WallClock::run(now);
    const double first = NSDate::now().sinceReferenceDate();
    while (NSDate::now().sinceReferenceDate() == first) {
    }

    EXPECT_GE(first, now - referenceDate);
    EXPECT_LT(NSDate::now().sinceReferenceDate(), now - referenceDate + 60);
}

TEST_F(EnvironmentTest, IndexPathsHaveASectionAndARow) {
    const auto path = NSIndexPath::forRow(3, 1);

    EXPECT_EQ(path.row(), 3);
    EXPECT_EQ(path.section(), 1);
    EXPECT_TRUE(path.isEqual(NSIndexPath::forRow(3, 1)));
    EXPECT_FALSE(path.isEqual(NSIndexPath::forRow(1, 3)));
}

TEST_F(EnvironmentTest, ValuesHoldRectangles) {
    const CGRect rect{{1.5, 2}, {320, 216}};

    EXPECT_EQ(NSValue::withCGRect(rect).CGRectValue(), rect);
}

} // namespace
} // namespace phone
