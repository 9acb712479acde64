#include "apps/vmhost/Snapshot.h"
#include "hosts/activex/win32/WinDrawing.h"
#include "platform/DrawingScopes.h"

#include <gtest/gtest.h>

#include <set>

namespace velmora::test {
namespace {

constexpr Rgb kRed = 0x0000FF, kBlue = 0xFF0000;
using Colors = std::set<std::uint32_t>;  // red, green, blue
constexpr std::uint32_t kRedSeen = 0xFF0000, kGreenSeen = 0x00FF00, kBlueSeen = 0x0000FF;
constexpr std::uint32_t kWhite = 0xFFFFFF;

class WinDrawingTest : public testing::Test {
protected:
    void Fill(const Rect& rect, Rgb color) {
        const OwnedObject brush = SolidBrush(drawing, color);
        drawing.FillRect(surface, rect, brush.Get());
    }
    Colors Seen(const Rect& rect) const {
        const vmhost::Picture picture = canvas.Read();
        Colors colors;
        for (int y = rect.top; y < rect.bottom; ++y) {
            for (int x = rect.left; x < rect.right; ++x) colors.insert(picture.At(x, y));
        }
        return colors;
    }
    /// Scaled unless the area is 8 x 8, as the pictures are.
    void Draw(const StdPicture& picture, const Rect& area) {
        const ObjectHandle handle = drawing.PictureHandle(picture);
        ASSERT_NE(handle, ObjectHandle::None);
        const int width = area.right - area.left, height = area.bottom - area.top;
        if (picture.Type() == PictureType::Icon) {
            return drawing.DrawIconEx(surface, area.left, area.top, handle, width, height,
                                      kDrawIconNormal);
        }
        const OwnedSurface source(drawing, drawing.CreateCompatibleDC(surface));
        const Selection selected(drawing, source.Get(), handle);
        if (width == 8) {
            drawing.BitBlt(surface, area, source.Get(), {0, 0}, RasterOp::SrcCopy);
        } else {
            drawing.StretchBlt(surface, area, source.Get(), {0, 0, 8, 8}, RasterOp::SrcCopy);
        }
    }

    const vmhost::Canvas canvas{200, 64};
    const SurfaceHandle surface = WinDrawing::SurfaceOf(canvas.Context());
    WinDrawing drawing;
};

std::shared_ptr<const PixelImage> Checkered(std::uint32_t even, std::uint32_t odd) {
    PixelImage image{8, 8, {}};
    for (int i = 0; i < 64; ++i) image.pixels.push_back((i + i / 8) % 2 == 0 ? even : odd);
    return std::make_shared<const PixelImage>(image);
}

TEST_F(WinDrawingTest, DrawsAsTheSystemDoes) {
    {
        const OwnedObject pen = SolidPen(drawing, kRed);
        const Selection selected(drawing, surface, pen);
        drawing.MoveToEx(surface, 2, 2);
        drawing.LineTo(surface, 10, 2);
    }
    EXPECT_EQ(Seen({2, 2, 10, 3}), Colors{kRedSeen});
    EXPECT_EQ(Seen({10, 0, 20, 9}), Colors{kWhite}) << "the end point stays";
    drawing.SaveDC(surface);
    drawing.IntersectClipRect(surface, {20, 0, 30, 10});
    Fill({15, 5, 35, 15}, kBlue);
    drawing.RestoreDC(surface);
    EXPECT_EQ(Seen({20, 5, 30, 10}), Colors{kBlueSeen});
    EXPECT_EQ(Seen({15, 5, 20, 15}), Colors{kWhite});
}

TEST_F(WinDrawingTest, TextIsUnicodeInPointsOfTheResolution) {
    drawing.SetBkMode(surface, BackgroundMode::Transparent);
    drawing.SetTextColor(surface, 0);
    const auto extent = [&](const char* text, LogFont style, int dpi, std::uint32_t flags = 0) {
        drawing.Dpi(dpi);
        const OwnedObject font(drawing, drawing.CreateFontIndirectA(style));
        const Selection selected(drawing, surface, font);
        Rect rect;
        drawing.DrawTextA(surface, text, rect, kTextSingleLine | kTextCalcRect | flags);
        return rect;
    };
    const LogFont plain{"Tahoma", 12};
    const Rect normal = extent("M\xC3\xA4rz", plain, 96);
    EXPECT_NEAR(extent("M\xC3\xA4rz", plain, 192).right, 2 * normal.right, 4);
    EXPECT_NEAR(extent("M\xC3\xA4rz", plain, 192).bottom, 2 * normal.bottom, 4);
    EXPECT_EQ(extent("Marz", plain, 96), normal) << "one letter for two bytes";
    EXPECT_LT(extent("a&b", plain, 96).right, extent("a&b", plain, 96, kTextNoPrefix).right);

    const OwnedObject font(drawing, drawing.CreateFontIndirectA(plain));
    const Selection selected(drawing, surface, font);
    Rect narrow{50, 10, 58, 40};
    drawing.DrawTextA(surface, "WWWW", narrow, kTextSingleLine | kTextVCenter);
    EXPECT_GT(Seen(narrow).size(), 1u);
    EXPECT_EQ(Seen({58, 0, 200, 60}), Colors{kWhite}) << "clipped";
}

/// Composed off screen, texts are placed by extents that are kept, with bars no longer than they.
TEST_F(WinDrawingTest, ComposedTextsAreThoseThatTheSystemPlaces) {
    const vmhost::Canvas shown(200, 64);
    const HDC screen = GetDC(nullptr);
    const SurfaceHandle window = WinDrawing::SurfaceOf(screen);
    const OwnedSurface memory(drawing, drawing.CreateCompatibleDC(window));
    const OwnedObject bitmap(drawing, drawing.CreateCompatibleBitmap(window, 200, 64));
    const Selection composed(drawing, memory.Get(), bitmap);
    const OwnedObject ground = SolidBrush(drawing, 0xFFFFFF);
    for (std::uint32_t i = 0; i < 2 * 9 * 9 * 8; ++i) {
        const std::string texts[] = {"7",
                                     "R&B\t1",
                                     "a long caption",
                                     "\xD7\x92 1, \xD7\x91",
                                     "",
                                     "W\xC3\xA4" + std::to_string(i),
                                     "30",
                                     "."};
        const std::string& text = texts[i / 9 % 8];
        const std::uint32_t flags = kTextSingleLine | (i % 3) | (i / 3 % 3 * 4) |
                                    (i % 5 ? kTextNoPrefix : 0u) | (i % 4 ? 0u : kTextEndEllipsis) |
                                    (i % 7 ? 0u : kTextRightToLeft);
        const OwnedObject font(
            drawing, drawing.CreateFontIndirectA({"Tahoma", 8.25, false, false, i % 2 == 0}));
        const Rect place = RectAt(50, 20, {static_cast<int>(i % 61), static_cast<int>(i % 37)});
        for (const SurfaceHandle on : {surface, memory.Get()}) {
            const Selection selected(drawing, on, font);
            drawing.FillRect(on, {0, 0, 200, 64}, ground.Get());
            Rect drawn = place, extent = RectAt(3, 4, {});
            drawing.DrawTextA(on, text, drawn, flags);
            drawing.DrawTextA(on, text, extent, kTextSingleLine | kTextCalcRect);
            drawing.DrawEdge(on, extent, kSunken, kAllSides);
        }
        drawing.BitBlt(WinDrawing::SurfaceOf(shown.Context()), {0, 0, 200, 64}, memory.Get(),
                       {0, 0}, RasterOp::SrcCopy);
        ASSERT_EQ(shown.Read().pixels, canvas.Read().pixels) << text << ' ' << i;
        for (const int x : {place.left - 1, place.right}) {
            ASSERT_EQ(Seen({x, 20, x + 1, 64}), Colors{kWhite}) << text << ' ' << i;
        }
    }
    ReleaseDC(nullptr, screen);
}

TEST_F(WinDrawingTest, PicturesLetTheTargetThrough) {
    Fill({0, 0, 64, 64}, kBlue);
    const auto picture = [](PictureType type, std::shared_ptr<const PixelImage> image) {
        return StdPicture(type, {212, 212}, std::move(image));
    };
    const auto holed = Checkered(0xFFFF0000, 0);
    const auto opaque = picture(PictureType::Bitmap, Checkered(0xFFFF0000, 0xFF00FF00));
    const auto holes = picture(PictureType::Bitmap, holed),
               icon = picture(PictureType::Icon, holed);
    Draw(opaque, {0, 0, 8, 8});
    Draw(holes, {8, 0, 16, 8});
    Draw(holes, {16, 0, 32, 16});
    Draw(icon, {32, 0, 40, 8});
    EXPECT_EQ(Seen({0, 0, 8, 8}), (Colors{kRedSeen, kGreenSeen}));
    EXPECT_EQ(Seen({8, 0, 16, 8}), (Colors{kRedSeen, kBlueSeen}));
    EXPECT_EQ(Seen({16, 0, 18, 2}), Colors{kRedSeen}) << "enlarged";
    EXPECT_EQ(Seen({18, 0, 20, 2}), Colors{kBlueSeen});
    EXPECT_EQ(Seen({32, 0, 40, 8}), (Colors{kRedSeen, kBlueSeen}));
    EXPECT_EQ(drawing.PictureHandle(opaque), drawing.PictureHandle(opaque)) << "made once";
    EXPECT_EQ(drawing.PictureHandle(picture(PictureType::Bitmap, nullptr)), ObjectHandle::None);
}

}  // namespace
}  // namespace velmora::test
