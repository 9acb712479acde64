#include "hosts/qt/QtDrawing.h"

#include "platform/DrawingScopes.h"

#include <gtest/gtest.h>

#include <QImage>
#include <QPainter>
#include <QWidget>

#include <algorithm>
#include <climits>
#include <cstdlib>
#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <tuple>
#include <vector>

namespace velmora {
namespace {

constexpr Rgb kWhite = 0xFFFFFF;
constexpr Rgb kRed = 0x0000FF;
constexpr Rgb kBlue = 0xFF0000;
constexpr QRgb kWhitePixel = 0xFFFFFFFF;
constexpr QRgb kRedPixel = 0xFFFF0000;
constexpr QRgb kBluePixel = 0xFF0000FF;

/// An image with a painter's surface on it, white at first.
class Screen {
public:
    explicit Screen(int width = 40, int height = 30, double ratio = 1)
        : m_image(qRound(width * ratio), qRound(height * ratio), QImage::Format_RGB32) {
        m_image.setDevicePixelRatio(ratio);
        m_image.fill(Qt::white);
        m_painter.begin(&m_image);
        m_surface.emplace(drawing, m_painter);
    }

    SurfaceHandle Get() const { return m_surface->Handle(); }
    QImage Image() const { return m_image.copy(); }
    QRgb At(int x, int y) const { return m_image.pixel(x, y); }

    QtDrawing drawing;

private:
    QImage m_image;
    QPainter m_painter;
    std::optional<QtDrawing::Surface> m_surface;
};

/// A memory surface with a bitmap like the screen's, filled.
class Memory {
public:
    Memory(Screen& screen, int width, int height, Rgb color = kWhite)
        : m_drawing(screen.drawing),
          m_surface(m_drawing, m_drawing.CreateCompatibleDC(screen.Get())),
          m_bitmap(m_drawing, m_drawing.CreateCompatibleBitmap(screen.Get(), width, height)),
          m_selected(m_drawing, m_surface.Get(), m_bitmap) {
        m_drawing.FillRect(Get(), {0, 0, width, height}, SolidBrush(m_drawing, color).Get());
    }

    SurfaceHandle Get() const { return m_surface.Get(); }

private:
    QtDrawing& m_drawing;
    OwnedSurface m_surface;
    OwnedObject m_bitmap;
    Selection m_selected;
};

constexpr Rect Area(int left, int top, int right, int bottom) { return {left, top, right, bottom}; }

using Paint = std::function<void(QtDrawing&, SurfaceHandle)>;

void Fill(QtDrawing& drawing, SurfaceHandle surface, const Rect& rect, Rgb color) {
    drawing.FillRect(surface, rect, SolidBrush(drawing, color).Get());
}

void Line(QtDrawing& drawing, SurfaceHandle surface, Point from, Point to) {
    const OwnedObject pen = SolidPen(drawing, kRed);
    const Selection selected(drawing, surface, pen);
    drawing.MoveToEx(surface, from.x, from.y);
    drawing.LineTo(surface, to.x, to.y);
}

int Text(QtDrawing& drawing, SurfaceHandle surface, std::string_view text, Rect rect,
         std::uint32_t flags, const LogFont& description = {"DejaVu Sans", 9}) {
    const OwnedObject font(drawing, drawing.CreateFontIndirectA(description));
    const Selection selected(drawing, surface, font);
    return drawing.DrawTextA(surface, text, rect, flags);
}

QImage Direct(const Paint& paint, double ratio = 1) {
    Screen screen(60, 30, ratio);
    paint(screen.drawing, screen.Get());
    return screen.Image();
}

QImage OffScreen(const Paint& paint, double ratio = 1) {
    Screen screen(60, 30, ratio);
    const Memory memory(screen, 60, 30);
    paint(screen.drawing, memory.Get());
    screen.drawing.BitBlt(screen.Get(), {0, 0, 60, 30}, memory.Get(), {}, RasterOp::SrcCopy);
    return screen.Image();
}

/// The smallest box around everything that is not white; empty when all is.
QRect Ink(const QImage& image) {
    QRect ink;
    for (int y = 0; y < image.height(); ++y) {
        for (int x = 0; x < image.width(); ++x) {
            if (image.pixel(x, y) != kWhitePixel) ink |= QRect(x, y, 1, 1);
        }
    }
    return ink;
}

/// Apart from the rounding where two glyphs of a text overlap.
bool Alike(const QImage& a, const QImage& b) {
    if (a.size() != b.size()) return false;
    for (int y = 0; y < a.height(); ++y) {
        for (int x = 0; x < a.width(); ++x) {
            const QRgb p = a.pixel(x, y);
            const QRgb q = b.pixel(x, y);
            const int far = std::max({std::abs(qRed(p) - qRed(q)), std::abs(qGreen(p) - qGreen(q)),
                                      std::abs(qBlue(p) - qBlue(q))});
            if (far > 1) return false;
        }
    }
    return true;
}

std::shared_ptr<StdPicture> MakePicture(PictureType type, int width, int height,
                                        std::vector<std::uint32_t> pixels) {
    auto image = std::make_shared<PixelImage>();
    *image = {width, height, std::move(pixels)};
    return std::make_shared<StdPicture>(type, Size{}, std::move(image));
}

}  // namespace

/// Looks and repaints compare them in the pixels of a screen of usual density.
TEST(QtDrawing, PaintsTheSamePixelsDirectlyAndOffScreen) {
    const auto icon = MakePicture(PictureType::Icon, 2, 2, {kRedPixel, 0, 0x80FF0000, kBluePixel});
    const LogFont decorated{"DejaVu Sans", 11, true, true, true, true};
    const Rect square{1, 1, 18, 18};
    const std::string tooLongForAMask(3000, 'M');
    const std::pair<const char*, Paint> cases[] = {
        {"slanted line",
         [](auto& d, auto s) {
             Line(d, s, {3, 4}, {41, 17});
         }},
        {"text",
         [&](auto& d, auto s) {
             Text(d, s, "fgj", {7, 5, 30, 20}, 0, decorated);
         }},
        {"long text",
         [&](auto& d, auto s) {
             Text(d, s, tooLongForAMask, {10, 5, 50, 25}, kTextCenter);
         }},
        {"button",
         [&](auto& d, auto s) {
             d.DrawFrameControl(s, square, FrameControl::ScrollBar, kScrollUp);
         }},
        {"edge", [&](auto& d, auto s) { d.DrawEdge(s, square, kSunken, kAllSides); }},
        {"focus", [](auto& d, auto s) { d.DrawFocusRect(s, Area(3, 3, 20, 12)); }},
        {"icon",
         [&](auto& d, auto s) {
             d.DrawIconEx(s, 2, 2, d.PictureHandle(*icon), 16, 16, kDrawIconNormal);
         }},
    };
    for (const double ratio : {1.0, 1.25, 1.5, 2.0}) {
        for (const auto& [name, paint] : cases) {
            const QImage direct = Direct(paint, ratio);
            EXPECT_TRUE(Alike(direct, OffScreen(paint, ratio))) << name << " at " << ratio;
            EXPECT_FALSE(Ink(direct).isEmpty()) << name;
        }
    }
    EXPECT_EQ(Ink(Direct(cases[0].second)).topLeft(), QPoint(3, 4));
    const QRect ink = Ink(Direct(cases[2].second));
    EXPECT_TRUE(QRect(10, 5, 40, 20).contains(ink)) << "outside its rectangle";
    EXPECT_GE(ink.width(), 35);
}

TEST(QtDrawing, EmptyInvertedAndExtremeArgumentsDrawNothingElse) {
    const Rect rects[] = {{5, 5, 5, 9},
                          {9, 9, 5, 5},
                          {INT_MAX, 0, INT_MIN, 9},
                          {INT_MAX - 1, 0, INT_MAX, 9},
                          {INT_MIN, INT_MIN, INT_MIN + 1, 0}};
    for (const Rect& rect : rects) {
        const Paint paint = [&](auto& d, auto s) {
            Fill(d, s, rect, kRed);
            d.DrawEdge(s, rect, kSunken, kAllSides);
            d.DrawFrameControl(s, rect, FrameControl::ScrollBar, kScrollUp);
            d.DrawFocusRect(s, rect);
            d.BitBlt(s, rect, s, {INT_MAX, INT_MIN}, RasterOp::SrcCopy);
            d.StretchBlt(s, rect, s, {0, 0, 9, 9}, RasterOp::SrcCopy);
            Text(d, s, "text", rect, kTextCenter | kTextVCenter);
        };
        EXPECT_TRUE(Ink(OffScreen(paint)).isEmpty()) << rect.left << ".." << rect.right;
        EXPECT_TRUE(Ink(Direct(paint)).isEmpty()) << rect.left << ".." << rect.right;
    }
    const Rect all{INT_MIN, INT_MIN, INT_MAX, INT_MAX};
    EXPECT_EQ(Ink(OffScreen([&](auto& d, auto s) { Fill(d, s, all, kRed); })), QRect(0, 0, 60, 30));
}

TEST(QtDrawing, AcceptsNoneAndObjectsOfTheWrongKind) {
    Screen screen;
    QtDrawing& d = screen.drawing;
    const OwnedObject pen = SolidPen(d, kRed);
    Rect rect{0, 0, 9, 9};
    d.FillRect(screen.Get(), rect, pen.Get());
    for (const SurfaceHandle s : {SurfaceHandle::None, screen.Get()}) {
        d.FillRect(s, rect, ObjectHandle::None);
        d.DrawIconEx(s, 0, 0, ObjectHandle::None, 9, 9, kDrawIconNormal);
        d.BitBlt(s, rect, SurfaceHandle::None, {}, RasterOp::SrcCopy);
        d.StretchBlt(s, rect, screen.Get(), rect, RasterOp::SrcCopy);
        d.RestoreDC(s);
        EXPECT_EQ(d.SelectObject(s, ObjectHandle::None), ObjectHandle::None);
    }
    d.DeleteObject(ObjectHandle::None);
    d.DeleteDC(SurfaceHandle::None);
    d.InvalidateRect(WindowHandle::None, &rect);
    EXPECT_EQ(d.DrawTextA(SurfaceHandle::None, "x", rect, 0), 0);
    EXPECT_TRUE(Ink(screen.Image()).isEmpty());
    for (const auto& [width, height] : {Size{0, 5}, Size{5, -1}, Size{32768, 1}}) {
        EXPECT_EQ(d.CreateCompatibleBitmap(screen.Get(), width, height), ObjectHandle::None);
    }
}

TEST(QtDrawing, BlitsCopyFromTheOffsetAndInsideTheSourceOnly) {
    Screen screen;
    QtDrawing& d = screen.drawing;
    const Memory source(screen, 10, 10, kBlue);
    Fill(d, source.Get(), {6, 6, 8, 8}, kRed);
    d.BitBlt(screen.Get(), {20, 10, 40, 30}, source.Get(), {5, 5}, RasterOp::SrcCopy);
    EXPECT_EQ(Ink(screen.Image()), QRect(20, 10, 5, 5));
    EXPECT_EQ(screen.At(22, 12), kRedPixel);
    EXPECT_EQ(screen.At(23, 13), kBluePixel);
    EXPECT_EQ(screen.At(20, 10), kBluePixel);
    d.StretchBlt(screen.Get(), {0, 0, 20, 20}, source.Get(), {-10, 0, 10, 20}, RasterOp::SrcCopy);
    EXPECT_EQ(Ink(screen.Image()), QRect(10, 0, 15, 15));
}

TEST(QtDrawing, ACopyWithinOneSurfaceReadsBeforeItOverwrites) {
    for (const int step : {1, -1}) {
        const Paint paint = [step](auto& d, auto s) {
            for (int i = 0; i < 9; ++i) Fill(d, s, {10, 10 + i, 19, 11 + i}, static_cast<Rgb>(i));
            d.BitBlt(s, {10, 10 + step, 19, 19 + step}, s, {10, 10}, RasterOp::SrcCopy);
        };
        const QImage image = OffScreen(paint);
        for (int i = 0; i < 9; ++i) EXPECT_EQ(qRed(image.pixel(12, 10 + step + i)), i) << step;
    }
}

TEST(QtDrawing, TheTextCacheTellsFontsColoursAndTextsApart) {
    const auto draw = [](std::string_view text, const LogFont& font, Rgb color = 0) {
        return OffScreen([&](auto& d, auto s) {
            d.SetTextColor(s, color);
            Text(d, s, text, {0, 0, 60, 30}, 0, font);
        });
    };
    const LogFont plain{"DejaVu Sans", 9};
    std::vector<QImage> different{draw("17", plain), draw("71", plain), draw("17", plain, kRed)};
    for (const LogFont& font :
         {LogFont{"DejaVu Sans", 10}, LogFont{"DejaVu Sans Mono", 9},
          LogFont{"DejaVu Sans", 9, true}, LogFont{"DejaVu Sans", 9, false, true},
          LogFont{"DejaVu Sans", 9, false, false, true},
          LogFont{"DejaVu Sans", 9, false, false, false, true}}) {
        different.push_back(draw("17", font));
    }
    for (std::size_t i = 0; i < different.size(); ++i) {
        for (std::size_t j = 0; j < i; ++j) EXPECT_FALSE(different[i] == different[j]) << i << j;
    }
    for (int i = 0; i < 200; ++i) draw("x", {"DejaVu Sans", 5 + i * 0.05});  // displaces them
    EXPECT_TRUE(draw("17", plain) == different[0]);
    EXPECT_TRUE(draw("1\n7\t", plain) == draw("1 7 ", plain));
}

TEST(QtDrawing, PicturesAreToldApartByTheirPixels) {
    QtDrawing drawing;
    const auto tooFew = MakePicture(PictureType::Bitmap, 2, 2, {1, 2, 3});
    EXPECT_EQ(drawing.PictureHandle(*tooFew), ObjectHandle::None);
    // Addresses are used again by the allocator; pixels must not be.
    for (std::uint32_t i = 0; i < 50; ++i) {
        Screen screen;
        const auto next = MakePicture(PictureType::Icon, 1, 1, {0xFF000000 + i});
        screen.drawing.DrawIconEx(screen.Get(), 0, 0, screen.drawing.PictureHandle(*next), 0, 0,
                                  kDrawIconNormal);
        EXPECT_EQ(screen.At(0, 0), 0xFF000000 + i);
    }
}

TEST(QtDrawing, ASecondFocusRectangleRemovesTheFirst) {
    const Paint paint = [](auto& d, auto s) {
        d.DrawFocusRect(s, {4, 4, 20, 14});
        d.DrawFocusRect(s, {4, 4, 20, 14});
    };
    EXPECT_TRUE(Ink(OffScreen(paint)).isEmpty());
    EXPECT_TRUE(Ink(Direct(paint)).isEmpty());
}

TEST(QtDrawing, SelectionReturnsWhatWasSelectedBefore) {
    Screen screen;
    QtDrawing& d = screen.drawing;
    const OwnedSurface surface(d, d.CreateCompatibleDC(screen.Get()));
    const OwnedSurface second(d, d.CreateCompatibleDC(screen.Get()));
    const OwnedObject objects[] = {SolidBrush(d, kRed),
                                   SolidPen(d, kRed),
                                   {d, d.CreateFontIndirectA({"DejaVu Sans", 9})},
                                   {d, d.CreateCompatibleBitmap(screen.Get(), 5, 5)}};
    ObjectHandle noBitmap{};
    for (const OwnedObject& object : objects) {
        const ObjectHandle before = noBitmap = d.SelectObject(surface.Get(), object.Get());
        EXPECT_NE(before, ObjectHandle::None);
        EXPECT_EQ(d.SelectObject(surface.Get(), before), object.Get());
        d.DeleteObject(before);  // what a surface begins with belongs to nobody
        EXPECT_EQ(d.SelectObject(surface.Get(), object.Get()), before);
    }
    const ObjectHandle bitmap = objects[3].Get();
    EXPECT_EQ(d.SelectObject(second.Get(), bitmap), ObjectHandle::None) << "in another surface";
    EXPECT_EQ(d.SelectObject(screen.Get(), bitmap), ObjectHandle::None) << "not a memory surface";
    d.DeleteObject(bitmap);  // not while it is selected
    EXPECT_EQ(d.SelectObject(surface.Get(), bitmap), bitmap);
    d.SelectObject(surface.Get(), noBitmap);
}

TEST(QtDrawing, BitmapsAliveAtOnceDoNotShareScratchMemory) {
    Screen screen;
    const Memory first(screen, 30, 20, kRed);
    const Memory second(screen, 30, 20, kBlue);
    screen.drawing.BitBlt(screen.Get(), {0, 0, 9, 9}, first.Get(), {}, RasterOp::SrcCopy);
    EXPECT_EQ(screen.At(3, 3), kRedPixel);
}

TEST(QtDrawing, SystemColoursAreTheActiveOnesAndLegibleOnADarkPalette) {
    QWidget widget;
    QPalette dark(QColor(0x30, 0x30, 0x30));
    dark.setColor(QPalette::Base, QColor(0x20, 0x21, 0x22));
    dark.setColor(QPalette::Text, Qt::white);
    dark.setColor(QPalette::Disabled, QPalette::Text, QColor(0x28, 0x28, 0x28));
    dark.setColor(QPalette::Inactive, QPalette::Highlight, Qt::green);
    dark.setColor(QPalette::Active, QPalette::Highlight, Qt::red);
    widget.setPalette(dark);
    QtDrawing drawing(&widget);
    EXPECT_EQ(drawing.GetSysColor(13), kRed);
    for (const int index : {-1, 31, 1000}) EXPECT_EQ(drawing.GetSysColor(index), 0u);
    const auto gray = [&](int index) {
        return static_cast<int>(drawing.GetSysColor(index) & 0xFF);
    };
    for (const auto& [text, ground] : {std::pair{8, 5}, {18, 15}, {7, 4}, {20, 15}, {23, 24}}) {
        EXPECT_GE(std::abs(gray(text) - gray(ground)), 20) << text << " on " << ground;
    }
    EXPECT_GE(std::abs(gray(17) - gray(5)), 48);
}

TEST(QtDrawing, ASurfaceRestoresThePainter) {
    QImage image(80, 60, QImage::Format_RGB32);
    image.setDevicePixelRatio(2);
    QPainter painter(&image);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(Qt::green);
    painter.translate(3, 4);
    const auto state = [&] {
        return std::tuple(painter.pen(), painter.font(), painter.worldTransform(),
                          painter.renderHints(), painter.hasClipping(), painter.compositionMode());
    };
    const auto before = state();
    {
        QtDrawing drawing;
        const QtDrawing::Surface surface(drawing, painter);
        drawing.IntersectClipRect(surface.Handle(), {0, 0, 9, 9});
        Text(drawing, surface.Handle(), "MMMM", {0, 0, 20, 9}, 0);
        drawing.DrawFocusRect(surface.Handle(), {0, 0, 9, 9});
        Fill(drawing, surface.Handle(), {1, 1, 2, 2}, kRed);
    }
    EXPECT_TRUE(state() == before);
    EXPECT_EQ(image.pixel(8, 10), kRedPixel);  // the caller's translation holds
}

}  // namespace velmora
