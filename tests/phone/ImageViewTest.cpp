#include "phone/uikit/ImageView.h"

#include "phone/coregraphics/Painter.h"
#include "phone/foundation/Text.h"
#include "phone/uikit/ContentMode.h"
#include "phone/uikit/Register.h"
#include "platform/objc/Pool.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <unistd.h>

namespace {

using namespace phone;
namespace fs = std::filesystem;

constexpr unsigned opaqueRed = 0xffff0000;

class ImageView : public testing::Test {
protected:
    void SetUp() override {
        registerViewClasses();
        registerDrawingClasses();
        _file = fs::temp_directory_path() / ("image-view-" + std::to_string(::getpid()) + ".png");
        auto canvas = Canvas::make(20, 10, 1);
        canvas->painter().fill(CGRect(0, 0, 20, 10), {1, 0, 0});
        ASSERT_TRUE(canvas->writePng(_file));
    }
    void TearDown() override { fs::remove(_file); }

    UIImage image() const { return UIImage::withContentsOfFile(string(_file)); }
    static std::unique_ptr<Canvas> drawn(const UIView& view) {
        auto canvas = Canvas::make(100, 100, 1);
        CurrentPainter drawing(canvas->painter());
        view.send<"_drawContent:">(view.bounds());
        return canvas;
    }

private:
    objc::Pool _pool;
    std::string _file;
};

TEST_F(ImageView, IsAsLargeAsThePictureItIsMadeWith) {
    const auto view = UIImageView::withImage(image());

    EXPECT_EQ(view.frame(), CGRect(0, 0, 20, 10));
    EXPECT_FALSE(view.isUserInteractionEnabled());
}

TEST_F(ImageView, IsEmptyWithoutAPicture) {
    const auto view = UIImageView::withImage(nullptr);

    EXPECT_EQ(view.frame(), CGRect());
    EXPECT_FALSE(view.image());
    EXPECT_EQ(drawn(UIImageView::withFrame(CGRect(0, 0, 50, 50)))->pixel(25, 25), 0U);
}

TEST_F(ImageView, StretchesThePictureOverItsBounds) {
    const auto view = UIImageView::withFrame(CGRect(0, 0, 60, 60));
    view.setImage(image());

    auto canvas = drawn(view);

    EXPECT_EQ(canvas->pixel(0, 0), opaqueRed);
    EXPECT_EQ(canvas->pixel(59, 59), opaqueRed);
    EXPECT_EQ(canvas->pixel(60, 60), 0U);
}

TEST_F(ImageView, FitsThePictureWithItsOwnProportions) {
    const auto view = UIImageView::withFrame(CGRect(0, 0, 60, 60));
    view.setImage(image());
    view.setContentMode(UIViewContentMode::ScaleAspectFit);

    auto canvas = drawn(view);

    EXPECT_EQ(canvas->pixel(30, 30), opaqueRed);
    EXPECT_EQ(canvas->pixel(0, 16), opaqueRed);
    EXPECT_EQ(canvas->pixel(30, 14), 0U);
}

TEST_F(ImageView, PlacesThePictureByItsContentMode) {
    const CGRect bounds(0, 0, 60, 60);

    EXPECT_EQ(placed({20, 10}, bounds, UIViewContentMode::ScaleToFill), bounds);
    EXPECT_EQ(placed({20, 10}, bounds, UIViewContentMode::ScaleAspectFit), CGRect(0, 15, 60, 30));
    EXPECT_EQ(placed({20, 10}, bounds, UIViewContentMode::ScaleAspectFill), CGRect(-30, 0, 120, 60));
    EXPECT_EQ(placed({20, 10}, bounds, UIViewContentMode::Center), CGRect(20, 25, 20, 10));
}

TEST_F(ImageView, FitsItsPicture) {
    const auto view = UIImageView::withFrame(CGRect(0, 0, 60, 60));
    view.setImage(image());

    EXPECT_EQ(view.sizeThatFits({}), (CGSize{20, 10}));
}

} // namespace
