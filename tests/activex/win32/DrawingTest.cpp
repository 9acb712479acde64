#include "hosts/activex/win32/GdiCache.h"
#include "hosts/activex/win32/NativePicture.h"
#include "hosts/activex/win32/WinDrawing.h"
#include "platform/DrawingScopes.h"

#include <gtest/gtest.h>

#include <set>

namespace velmora::test {
namespace {

constexpr Rgb kRed = 0x0000FF;
constexpr Rgb kBlue = 0xFF0000;

/// A memory surface whose pixels can be looked at.
class Canvas {
public:
    Canvas(int width, int height)
        : m_surface(drawing, drawing.CreateCompatibleDC(SurfaceHandle::None)),
          m_bitmap(drawing, drawing.CreateCompatibleBitmap(SurfaceHandle::None, width, height)),
          m_selected(drawing, m_surface.Get(), m_bitmap) {
        Fill({0, 0, width, height}, 0xFFFFFF);
    }

    SurfaceHandle Get() const { return m_surface.Get(); }
    Rgb At(int x, int y) const { return GetPixel(WinDrawing::ContextOf(Get()), x, y); }
    void Fill(const Rect& rect, Rgb color) {
        const OwnedObject brush = SolidBrush(drawing, color);
        drawing.FillRect(Get(), rect, brush.Get());
    }
    std::set<Rgb> Colors(const Rect& rect) const {
        std::set<Rgb> colors;
        for (int y = rect.top; y < rect.bottom; ++y) {
            for (int x = rect.left; x < rect.right; ++x) colors.insert(At(x, y));
        }
        return colors;
    }

    WinDrawing drawing;

private:
    OwnedSurface m_surface;
    OwnedObject m_bitmap;
    Selection m_selected;
};

std::shared_ptr<const PixelImage> Checkered(std::uint32_t even, std::uint32_t odd) {
    PixelImage image{8, 8, {}};
    for (int i = 0; i < 64; ++i) image.pixels.push_back((i + i / 8) % 2 == 0 ? even : odd);
    return std::make_shared<const PixelImage>(image);
}

TEST(WinDrawing, DrawsAsTheSystemDoes) {
    Canvas canvas(100, 40);
    WinDrawing& drawing = canvas.drawing;
    {
        const OwnedObject pen = SolidPen(drawing, kRed);
        const Selection selected(drawing, canvas.Get(), pen);
        drawing.MoveToEx(canvas.Get(), 2, 2);
        drawing.LineTo(canvas.Get(), 10, 2);
    }
    EXPECT_EQ(canvas.At(9, 2), kRed);
    EXPECT_EQ(canvas.At(10, 2), 0xFFFFFFu) << "the end point stays";

    drawing.SaveDC(canvas.Get());
    drawing.IntersectClipRect(canvas.Get(), {20, 0, 30, 10});
    canvas.Fill({0, 20, 100, 30}, kBlue);
    canvas.Fill({15, 5, 35, 15}, kBlue);
    drawing.RestoreDC(canvas.Get());
    EXPECT_EQ(canvas.Colors({0, 20, 100, 30}), std::set<Rgb>{0xFFFFFF});
    EXPECT_EQ(canvas.At(25, 7), kBlue);
    EXPECT_EQ(canvas.At(19, 7), 0xFFFFFFu);

    for (const auto& [index, known] : {std::pair{5, true}, {15, true}, {500, false}}) {
        EXPECT_EQ(drawing.GetSysColor(index), known ? ::GetSysColor(index) : 0);
    }
    EXPECT_EQ(drawing.SelectObject(canvas.Get(), ObjectHandle::None), ObjectHandle::None);
    drawing.FillRect(canvas.Get(), {0, 0, 9, 9}, ObjectHandle::None);
    EXPECT_EQ(canvas.At(9, 2), kRed);
}

TEST(WinDrawing, TextIsUnicodeInPointsOfTheResolution) {
    Canvas canvas(200, 60);
    WinDrawing& drawing = canvas.drawing;
    drawing.SetBkMode(canvas.Get(), BackgroundMode::Transparent);
    drawing.SetTextColor(canvas.Get(), 0);
    const auto extent = [&](const char* text, int dpi, std::uint32_t flags = 0) {
        drawing.Dpi(dpi);
        const OwnedObject font(drawing, drawing.CreateFontIndirectA({"Tahoma", 12}));
        const Selection selected(drawing, canvas.Get(), font);
        Rect rect;
        drawing.DrawTextA(canvas.Get(), text, rect, kTextSingleLine | kTextCalcRect | flags);
        return rect;
    };
    const Rect normal = extent("M\xC3\xA4rz", 96);
    EXPECT_NEAR(extent("M\xC3\xA4rz", 192).right, 2 * normal.right, 4);
    EXPECT_EQ(extent("Marz", 96), normal) << "one letter for two bytes";
    EXPECT_LT(extent("a&b", 96).right, extent("a&b", 96, kTextNoPrefix).right);

    const OwnedObject font(drawing, drawing.CreateFontIndirectA({"Tahoma", 12}));
    const Selection selected(drawing, canvas.Get(), font);
    Rect narrow{50, 10, 58, 40};
    drawing.DrawTextA(canvas.Get(), "WWWW", narrow, kTextSingleLine | kTextVCenter);
    EXPECT_GT(canvas.Colors(narrow).size(), 1u);
    EXPECT_EQ(canvas.Colors({58, 0, 200, 60}), std::set<Rgb>{0xFFFFFF}) << "clipped";
}

TEST(WinDrawing, PicturesLetTheTargetThrough) {
    Canvas canvas(64, 64);
    WinDrawing& drawing = canvas.drawing;
    canvas.Fill({0, 0, 64, 64}, kBlue);
    const auto draw = [&](const StdPicture& picture, const Rect& area) {
        const ObjectHandle handle = drawing.PictureHandle(picture);
        ASSERT_NE(handle, ObjectHandle::None);
        if (picture.Type() == PictureType::Icon) {
            drawing.DrawIconEx(canvas.Get(), area.left, area.top, handle, area.right - area.left,
                               area.bottom - area.top, kDrawIconNormal);
            return;
        }
        const OwnedSurface source(drawing, drawing.CreateCompatibleDC(canvas.Get()));
        const Selection selected(drawing, source.Get(), handle);
        if (area.right - area.left == 8) {
            drawing.BitBlt(canvas.Get(), area, source.Get(), {0, 0}, RasterOp::SrcCopy);
        } else {
            drawing.StretchBlt(canvas.Get(), area, source.Get(), {0, 0, 8, 8}, RasterOp::SrcCopy);
        }
    };
    constexpr std::uint32_t kOpaqueRed = 0xFFFF0000;
    const StdPicture opaque(PictureType::Bitmap, {212, 212}, Checkered(kOpaqueRed, 0xFF00FF00));
    const StdPicture holes(PictureType::Bitmap, {212, 212}, Checkered(kOpaqueRed, 0x00FFFFFF));
    const StdPicture icon(PictureType::Icon, {212, 212}, Checkered(kOpaqueRed, 0));
    draw(opaque, {0, 0, 8, 8});
    EXPECT_EQ(canvas.Colors({0, 0, 8, 8}), (std::set<Rgb>{kRed, 0x00FF00}));
    draw(holes, {8, 0, 16, 8});
    EXPECT_EQ(canvas.Colors({8, 0, 16, 8}), (std::set<Rgb>{kRed, kBlue}));
    draw(holes, {16, 0, 32, 16});
    EXPECT_EQ(canvas.At(16, 0), kRed) << "enlarged";
    EXPECT_EQ(canvas.At(18, 0), kBlue);
    draw(icon, {32, 0, 40, 8});
    EXPECT_EQ(canvas.Colors({32, 0, 40, 8}), (std::set<Rgb>{kRed, kBlue}));
    EXPECT_EQ(drawing.PictureHandle(opaque), drawing.PictureHandle(opaque)) << "made once";

    const StdPicture nothing(PictureType::Bitmap, {212, 212}, nullptr);
    EXPECT_EQ(drawing.PictureHandle(nothing), ObjectHandle::None);
    const HBITMAP own = CreateBitmap(8, 8, 1, 32, nullptr);
    const NativePicture native(PictureType::Bitmap, {212, 212}, opaque.Image(), own);
    EXPECT_EQ(drawing.PictureHandle(native),
              static_cast<ObjectHandle>(reinterpret_cast<std::uintptr_t>(own)));
    DeleteObject(own);
}

}  // namespace
}  // namespace velmora::test
