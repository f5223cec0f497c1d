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
    const std::string stem = std::string(SOURCE_DIRECTORY "/resources/Library/Quorvan/") + picture.name;

    const auto plain = Bitmap::load(stem + ".png");
    const auto sharp = Bitmap::load(stem + "@2x.png");

    ASSERT_NE(plain, nullptr);
    ASSERT_NE(sharp, nullptr);
    EXPECT_EQ(plain->width(), picture.width);
    EXPECT_EQ(plain->height(), static_cast<int>(picture.height + 0.5));
    EXPECT_EQ(sharp->width(), 2 * picture.width);
    EXPECT_EQ(sharp->height(), 2 * picture.height);
}

INSTANTIATE_TEST_SUITE_P(All, Resources,
                         testing::Values(Picture{"notes", 60, 60}, Picture{"Reminders", 60, 60},
                                         Picture{"Events", 60, 60}, Picture{"bg", 320, 568}, Picture{"arrow", 7, 10.5},
                                         Picture{"back", 46, 84}),
                         [](const auto& info) { return std::string(info.param.name); });

} // namespace
