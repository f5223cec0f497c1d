#include "phone/coregraphics/Painter.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <iterator>
#include <sys/stat.h>
#include <unistd.h>

namespace {

using namespace phone;
namespace fs = std::filesystem;

constexpr Color red{1, 0, 0};
constexpr Color blue{0, 0, 1};
constexpr unsigned opaqueRed = 0xffff0000;
constexpr unsigned opaqueBlue = 0xff0000ff;

/// A folder for the files of one test.
class Bitmaps : public testing::Test {
protected:
    void SetUp() override {
        _folder = fs::temp_directory_path() /
                  ("bitmaps-" + std::string(testing::UnitTest::GetInstance()->current_test_info()->name()) + "-" +
                   std::to_string(::getpid()));
        fs::create_directories(_folder);
    }
    void TearDown() override {
        fs::remove_all(_folder);
        EXPECT_EQ(testing::internal::GetCapturedStderr(), "");
    }
    std::string path(const char* name) const { return _folder / name; }

    /// Left half red, right half blue; two by two pixels.
    std::string picture() const {
        auto canvas = Canvas::make(2, 2, 1);
        canvas->painter().fill(CGRect(0, 0, 1, 2), red);
        canvas->painter().fill(CGRect(1, 0, 1, 2), blue);
        EXPECT_TRUE(canvas->writePng(path("picture.png")));
        return path("picture.png");
    }
    static std::string contents(const std::string& file) {
        std::ifstream in(file, std::ios::binary);
        return {std::istreambuf_iterator<char>(in), {}};
    }
    std::string write(const char* name, const std::string& bytes) const {
        std::ofstream(path(name), std::ios::binary) << bytes;
        return path(name);
    }

private:
    fs::path _folder;
};

class Loading : public Bitmaps {
protected:
    void SetUp() override {
        Bitmaps::SetUp();
        testing::internal::CaptureStderr();
    }
};

TEST_F(Loading, GivesTheSizeInPixels) {
    auto bitmap = Bitmap::load(picture());

    ASSERT_NE(bitmap, nullptr);
    EXPECT_EQ(bitmap->width(), 2);
    EXPECT_EQ(bitmap->height(), 2);
}

TEST_F(Loading, WritesTheSamePictureAsTheSameBytes) {
    const std::string first = contents(picture());

    EXPECT_EQ(contents(picture()), first);
}

TEST_F(Loading, GivesNothingForAMissingFile) { EXPECT_EQ(Bitmap::load(path("missing.png")), nullptr); }

TEST_F(Loading, GivesNothingForAFolder) { EXPECT_EQ(Bitmap::load(path("")), nullptr); }

TEST_F(Loading, GivesNothingForAPipe) {
    ASSERT_EQ(mkfifo(path("pipe.png").c_str(), 0644), 0);

    EXPECT_EQ(Bitmap::load(path("pipe.png")), nullptr);
}

TEST_F(Loading, GivesNothingForAnEmptyFile) { EXPECT_EQ(Bitmap::load(write("empty.png", "")), nullptr); }

TEST_F(Loading, GivesNothingForATextFile) {
    EXPECT_EQ(Bitmap::load(write("text.png", std::string(1000, 'x'))), nullptr);
}

TEST_F(Loading, GivesNothingForATruncatedFile) {
    const std::string whole = contents(picture());

    for (std::size_t length = 0; length + 13 < whole.size(); ++length) { // the end mark alone may be missing
        EXPECT_EQ(Bitmap::load(write("cut.png", whole.substr(0, length))), nullptr) << length << " bytes";
    }
}

TEST_F(Loading, SurvivesEveryFlippedByte) {
    const std::string whole = contents(picture());

    for (std::size_t at = 0; at < whole.size(); ++at) {
        std::string flipped = whole;
        flipped[at] = static_cast<char>(~flipped[at]);
        Bitmap::load(write("flipped.png", flipped));
    }
}

TEST_F(Loading, RefusesAPictureThatIsTooLarge) {
    std::string bytes = contents(picture());
    bytes[18] = 0x20; // a width of 8194
    bytes[19] = 0x02;

    EXPECT_EQ(Bitmap::load(write("huge.png", bytes)), nullptr);
}

TEST_F(Loading, DrawsThePictureIntoARectangle) {
    auto bitmap = Bitmap::load(picture());
    auto canvas = Canvas::make(10, 10, 1);

    canvas->painter().image(*bitmap, CGRect(2, 2, 2, 2));

    EXPECT_EQ(canvas->pixel(2, 2), opaqueRed);
    EXPECT_EQ(canvas->pixel(3, 3), opaqueBlue);
    EXPECT_EQ(canvas->pixel(4, 4), 0U);
}

TEST_F(Loading, DrawsAPartWithoutWhatLiesBesideIt) {
    auto bitmap = Bitmap::load(picture());
    auto canvas = Canvas::make(10, 10, 1);

    canvas->painter().image(*bitmap, CGRect(1, 0, 1, 2), CGRect(0, 0, 10, 10));

    EXPECT_EQ(canvas->pixel(0, 0), opaqueBlue);
    EXPECT_EQ(canvas->pixel(9, 9), opaqueBlue);
}

TEST_F(Loading, UsesThePicturesAlphaAsAStencil) {
    auto source = Canvas::make(2, 1, 1);
    source->painter().fill(CGRect(0, 0, 1, 1), red);
    source->writePng(path("half.png"));
    auto canvas = Canvas::make(2, 1, 1);

    canvas->painter().mask(*Bitmap::load(path("half.png")), CGRect(0, 0, 2, 1), blue);

    EXPECT_EQ(canvas->pixel(0, 0), opaqueBlue);
    EXPECT_EQ(canvas->pixel(1, 0), 0U);
}

} // namespace
