#include "phone/coregraphics/Painter.h"

#include <gtest/gtest.h>

#include <ostream>
#include <string>

namespace {

using namespace phone;

/// An installed picture and its size in points.
struct Picture {
    const char* name;
    double width;
    double height;
};

void PrintTo(const Picture& picture, std::ostream* out) { *out << picture.name; }

class Resources : public testing::TestWithParam<Picture> {};

TEST_P(Resources, AreDrawnAtOneAndTwoPixelsPerPoint) {
    const Picture& picture = GetParam();
    const std::string stem = std::string(SOURCE_DIRECTORY "/resources/Library/") + picture.name;

    const auto plain = Bitmap::load(stem + ".png");
    const auto sharp = Bitmap::load(stem + "@2x.png");

    ASSERT_NE(plain, nullptr);
    ASSERT_NE(sharp, nullptr);
    EXPECT_EQ(plain->width(), picture.width);
    EXPECT_EQ(plain->height(), static_cast<int>(picture.height + 0.5));
    EXPECT_EQ(sharp->width(), 2 * picture.width);
    EXPECT_EQ(sharp->height(), 2 * picture.height);
}

TEST(SettingsIcon, IsDrawnAtOneTwoAndThreePixelsPerPoint) {
    for (int scale : {1, 2, 3}) {
        const std::string suffix = scale == 1 ? "" : "@" + std::to_string(scale) + "x";
        const auto icon = Bitmap::load(SOURCE_DIRECTORY "/resources/Library/PreferenceLoader/Preferences/Quorvan/icon" +
                                       suffix + ".png");
        ASSERT_NE(icon, nullptr);
        EXPECT_EQ(icon->width(), 29 * scale);
        EXPECT_EQ(icon->height(), 29 * scale);
    }
}

INSTANTIATE_TEST_SUITE_P(All, Resources,
                         testing::Values(Picture{"Quorvan/notes", 60, 60}, Picture{"Quorvan/Reminders", 60, 60},
                                         Picture{"Quorvan/Events", 60, 60}, Picture{"Quorvan/bg", 320, 568},
                                         Picture{"Quorvan/arrow", 7, 10.5}, Picture{"Quorvan/back", 46, 84}),
                         [](const auto& info) {
                             const std::string name = info.param.name;
                             return name.substr(name.rfind('/') + 1);
                         });

} // namespace
