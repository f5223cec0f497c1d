#include "phone/uikit/Image.h"

#include "phone/device/Settings.h"
#include "phone/foundation/Text.h"
#include "phone/uikit/Color.h"
#include "phone/uikit/Register.h"
#include "platform/objc/Pool.h"
#include "tests/phone/PhoneTest.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <unistd.h>

namespace {

using namespace phone;
namespace fs = std::filesystem;

constexpr Color red{1, 0, 0};
constexpr Color green{0, 1, 0};
constexpr Color blue{0, 0, 1};
constexpr unsigned opaqueRed = 0xffff0000;
constexpr unsigned opaqueGreen = 0xff00ff00;
constexpr unsigned opaqueBlue = 0xff0000ff;

class Images : public testing::Test {
protected:
    void SetUp() override {
        registerDrawingClasses();
        _folder = fs::temp_directory_path() / ("images-" + std::to_string(::getpid()));
        fs::create_directories(_folder);
    }
    void TearDown() override { fs::remove_all(_folder); }

    std::string path(const std::string& name) const { return _folder / name; }

    /// A picture of this many pixels in one colour.
    void write(const std::string& name, int width, int height, const Color& color = red) const {
        auto canvas = Canvas::make(width, height, 1);
        canvas->painter().fill(CGRect(0, 0, width, height), color);
        ASSERT_TRUE(canvas->writePng(path(name)));
    }
    /// Three columns of red, then one of green, then six of blue.
    UIImage columns() const {
        auto canvas = Canvas::make(10, 4, 1);
        canvas->painter().fill(CGRect(0, 0, 3, 4), red);
        canvas->painter().fill(CGRect(3, 0, 1, 4), green);
        canvas->painter().fill(CGRect(4, 0, 6, 4), blue);
        EXPECT_TRUE(canvas->writePng(path("columns.png")));
        return load("columns.png");
    }
    UIImage load(const std::string& name) const { return UIImage::withContentsOfFile(string(path(name))); }

private:
    objc::Pool _pool;
    fs::path _folder;
};

TEST_F(Images, AreAsLargeAsTheirPixelsAtScaleOne) {
    write("plain.png", 30, 20);

    const auto image = load("plain.png");

    EXPECT_EQ(image.size(), (CGSize{30, 20}));
    EXPECT_EQ(image.scale(), 1);
}

TEST_F(Images, PreferTheSharperFile) {
    write("arrow.png", 7, 11);
    write("arrow@2x.png", 14, 21);

    const auto image = load("arrow.png");

    EXPECT_EQ(image.size(), (CGSize{7, 10.5}));
    EXPECT_EQ(image.scale(), 2);
}

TEST_F(Images, AreFoundWhereOnlyTheSharperFileExists) {
    write("only@2x.png", 14, 20);

    EXPECT_EQ(load("only.png").size(), (CGSize{7, 10}));
}

TEST_F(Images, OfAnOlderScreenAreThePlainFiles) {
    write("arrow.png", 7, 11);
    write("arrow@2x.png", 14, 21);
    Settings older;
    older.device.scale = 1;
    useSettings(older);

    EXPECT_EQ(load("arrow.png").size(), (CGSize{7, 11}));
}

TEST_F(Images, NamedAsTheSharperFileAreOfScaleTwo) {
    write("arrow@2x.png", 14, 20);

    EXPECT_EQ(load("arrow@2x.png").size(), (CGSize{7, 10}));
}

TEST_F(Images, FallBackToThePlainFileWhenTheSharperIsNoPicture) {
    write("arrow.png", 7, 11);
    std::ofstream(path("arrow@2x.png")) << "no picture";

    EXPECT_EQ(load("arrow.png").size(), (CGSize{7, 11}));
}

TEST_F(Images, OfAMissingFileAreNil) {
    EXPECT_FALSE(load("missing.png"));
    EXPECT_FALSE(UIImage::withContentsOfFile(nullptr));
    EXPECT_FALSE(UIImage::withContentsOfFile(""_ns));
}

TEST_F(Images, OfAFileThatIsNoPictureAreNil) {
    std::ofstream(path("text.png")) << "no picture";

    EXPECT_FALSE(load("text.png"));
}

TEST_F(Images, RememberThePathAsItWasGiven) {
    write("arrow.png", 7, 11);
    write("arrow@2x.png", 14, 21);

    const auto image = load("arrow.png");

    EXPECT_EQ(imagePath(image), path("arrow.png"));
    EXPECT_EQ(imagePath(image.stretchable(2, 0)), path("arrow.png"));
    EXPECT_EQ(imagePath(nullptr), "");
}

// Holds: stretchable-image
TEST_F(Images, StretchTheOneColumnAfterTheCap) {
    auto canvas = Canvas::make(30, 4, 1);

    drawImage(canvas->painter(), columns().stretchable(3, 0), CGRect(0, 0, 30, 4));

    for (int x = 0; x < 30; ++x) {
        const unsigned expected = x < 3 ? opaqueRed : x < 24 ? opaqueGreen : opaqueBlue;
        EXPECT_EQ(canvas->pixel(x, 2), expected) << x;
    }
}

// Holds: stretchable-image
TEST_F(Images, StretchTheOneRowAfterTheCap) {
    auto source = Canvas::make(2, 4, 1);
    source->painter().fill(CGRect(0, 0, 2, 1), red);
    source->painter().fill(CGRect(0, 1, 2, 1), green);
    source->painter().fill(CGRect(0, 2, 2, 2), blue);
    source->writePng(path("rows.png"));
    auto canvas = Canvas::make(2, 20, 1);

    drawImage(canvas->painter(), load("rows.png").stretchable(0, 1), CGRect(0, 0, 2, 20));

    for (int y = 0; y < 20; ++y) {
        const unsigned expected = y < 1 ? opaqueRed : y < 18 ? opaqueGreen : opaqueBlue;
        EXPECT_EQ(canvas->pixel(1, y), expected) << y;
    }
}

TEST_F(Images, ShrinkTheCapsAlikeWhereTheyDoNotFit) {
    auto canvas = Canvas::make(3, 4, 1);

    drawImage(canvas->painter(), columns().stretchable(3, 0), CGRect(0, 0, 3, 4));

    EXPECT_EQ(canvas->pixel(0, 2), opaqueRed); // a third is the left cap, two thirds the right one
    EXPECT_EQ(canvas->pixel(1, 2), opaqueBlue);
    EXPECT_EQ(canvas->pixel(2, 2), opaqueBlue);
}

// Holds: stretchable-image
TEST_F(Images, AreNotChangedByMakingAStretchableCopy) {
    const auto image = columns();

    const auto copy = image.stretchable(3, 1);

    EXPECT_EQ((image.send<"leftCapWidth", objc::Int>()), 0);
    EXPECT_EQ((copy.send<"leftCapWidth", objc::Int>()), 3);
    EXPECT_EQ((copy.send<"topCapHeight", objc::Int>()), 1);
    EXPECT_EQ(copy.size(), image.size());
}

TEST_F(Images, DrawTheirAlphaInAnyColour) {
    write("mask.png", 4, 4, red);
    auto canvas = Canvas::make(4, 4, 1);

    drawImageMask(canvas->painter(), load("mask.png"), CGRect(0, 0, 4, 4), blue);

    EXPECT_EQ(canvas->pixel(2, 2), opaqueBlue);
}

TEST_F(Images, DrawNothingForNilAndOutsideDrawing) {
    write("plain.png", 4, 4);
    auto canvas = Canvas::make(4, 4, 1);

    drawImage(canvas->painter(), nullptr, CGRect(0, 0, 4, 4));
    drawImageMask(canvas->painter(), nullptr, CGRect(0, 0, 4, 4), blue);
    load("plain.png").send<"drawInRect:">(CGRect(0, 0, 4, 4));

    EXPECT_EQ(canvas->pixel(2, 2), 0U);
}

TEST_F(Images, DrawThemselvesIntoTheCurrentContext) {
    write("plain.png", 4, 4);
    auto canvas = Canvas::make(10, 10, 1);
    CurrentPainter drawing(canvas->painter());

    load("plain.png").send<"drawAtPoint:">(CGPoint{3, 3});

    EXPECT_EQ(canvas->pixel(2, 2), 0U);
    EXPECT_EQ(canvas->pixel(3, 3), opaqueRed);
    EXPECT_EQ(canvas->pixel(7, 7), 0U);
}

class ImagesOnTheDevice : public PhoneTest {
protected:
    ImagesOnTheDevice() { useClassesOnly(); }

    void draw(const std::string& devicePath) {
        const auto canvas = Canvas::make(4, 4, 1);
        ASSERT_TRUE(canvas->writePng(hostPath(devicePath).string()));
    }
    /// What the log says of one loading.
    std::string entryOf(const NSString& path) {
        const std::size_t before = log("file").size();
        UIImage::withContentsOfFile(path);
        const auto entries = log("file");
        return entries.size() == before + 1
                   ? entries.back().at("path").get<std::string>() + (entries.back().at("ok") ? " ok" : " failed")
                   : std::to_string(entries.size() - before) + " entries";
    }
};

TEST_F(ImagesOnTheDevice, LeaveOneEntryInTheLogForEachLoading) {
    boot();
    draw("/Library/plain.png");
    draw("/Library/both.png");
    draw("/Library/both@2x.png");
    write("/Library/text.png", "no picture");

    EXPECT_EQ(entryOf("/Library/plain.png"_ns), "/Library/plain.png ok");
    EXPECT_EQ(entryOf("/Library/both.png"_ns), "/Library/both.png ok");
    EXPECT_EQ(entryOf("/Library/text.png"_ns), "/Library/text.png failed");
    EXPECT_EQ(entryOf("/Library/missing.png"_ns), "/Library/missing.png failed");
    EXPECT_EQ(entryOf(nullptr), "0 entries");
}

} // namespace
