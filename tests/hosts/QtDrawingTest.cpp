#include "VelmoraCalendar/QtConversions.h"
#include "VelmoraCalendar/VmCalDropDownWidget.h"
#include "VelmoraCalendar/VmCalendarWidget.h"
#include "calendar/Contrast.h"
#include "calendar/VmCalendar.h"
#include "hosts/qt/drawing/QtDrawing.h"

#include "platform/DrawingScopes.h"

#include <gtest/gtest.h>

#include <QImage>
#include <QPainter>

#include <cstdlib>
#include <memory>
#include <optional>
#include <string>
#include <vector>

namespace velmora {
namespace {

constexpr Rgb kRed = 0x0000FF;

/// An image with a painter's surface on it, white at first.
class Screen {
public:
    Screen() : m_image(90, 30, QImage::Format_RGB32) {
        m_image.fill(Qt::white);
        m_painter.begin(&m_image);
        m_surface.emplace(drawing, m_painter);
    }

    SurfaceHandle Get() const { return m_surface->Handle(); }
    QImage Image() const { return m_image.copy(); }

    QtDrawing drawing;

private:
    QImage m_image;
    QPainter m_painter;
    std::optional<QtDrawing::Surface> m_surface;
};

QImage Drawn(std::string_view text, const LogFont& description, Rgb color = 0) {
    Screen screen;
    const OwnedObject font(screen.drawing, screen.drawing.CreateFontIndirectA(description));
    const Selection selected(screen.drawing, screen.Get(), font);
    Rect room{2, 2, 88, 28};
    screen.drawing.SetTextColor(screen.Get(), color);
    screen.drawing.DrawTextA(screen.Get(), text, room, kTextLeft | kTextSingleLine | kTextNoPrefix);
    return screen.Image();
}

}  // namespace

/// Indices of system colours: 17 grey text, 5 window, 15 face, 16 and 21 edges.
TEST(QtDrawing, GreyTextAndEdgesAreSeenInEveryPalette) {
    for (const QPalette& palette : {QPalette(), QPalette(Qt::black), QPalette(Qt::white),
                                    QPalette(QColor(53, 53, 53)), QPalette(Qt::red)}) {
        QWidget widget;
        widget.setPalette(palette);
        QtDrawing drawing(&widget);
        for (const auto& [color, ground, least] :
             {std::tuple(17, 5, 3.0), {17, 15, 3.0}, {16, 15, 1.1}, {21, 15, 1.1}}) {
            EXPECT_GE(ContrastOf(drawing.GetSysColor(color), drawing.GetSysColor(ground)), least);
        }
        VmCalDropDownWidget box;
        box.setPalette(palette);
        const QImage image = box.grab().toImage();
        const auto pixel = [&](int x, int y) { return ToOleColor(image.pixelColor(x, y)); };
        EXPECT_GE(ContrastOf(pixel(0, 9), pixel(3, 9)), 1.3) << "the frame on the left";
        EXPECT_GE(ContrastOf(pixel(image.width() - 1, 9), pixel(3, 9)), 1.3) << "and the right";
    }
}

/// There is no bitmap of that size to paint on first.
TEST(VmCalendarWidget, AnyExtentIsPainted) {
    VmCalendarWidget widget;
    for (const QSize size : {QSize(1, 1), QSize(40'000, 9), QSize(9, 40'000)}) {
        widget.resize(size);
        QImage image(size, QImage::Format_RGB32);
        image.fill(Qt::magenta);
        widget.render(&image);
        EXPECT_NE(image.pixelColor(0, 0), QColor(Qt::magenta)) << size.width();
    }
}

/// Large surfaces are filled past the processor's caches, by whole lines of them.
TEST(VmCalendarWidget, LooksTheSameOnLargeAndOnSmallSurfaces) {
    VmCalendarWidget widget;
    const QSize size(2305, 1900);
    widget.resize(size);
    QImage whole(size, QImage::Format_RGB32);
    whole.fill(Qt::magenta);
    widget.render(&whole);
    constexpr int kStrip = 475;
    for (int y = 0; y < size.height(); y += kStrip) {
        const QRect part(0, y, size.width(), kStrip);
        QImage strip(part.size(), QImage::Format_RGB32);
        strip.fill(Qt::magenta);
        widget.render(&strip, {}, part);
        EXPECT_EQ(strip, whole.copy(part)) << y;
    }
}

TEST(QtDrawing, TheTextCacheTellsFontsColoursAndTextsApart) {
    const LogFont plain{"DejaVu Sans", 9};
    std::vector<QImage> different{Drawn("17", plain), Drawn("71", plain), Drawn("17", plain, kRed)};
    different.push_back(Drawn("17", {"DejaVu Sans", 10}));
    different.push_back(Drawn("17", {"DejaVu Sans Mono", 9}));
    for (const int style : {1, 2, 4, 8}) {
        different.push_back(
            Drawn("17", {"DejaVu Sans", 9, style == 1, style == 2, style == 4, style == 8}));
    }
    for (std::size_t i = 0; i < different.size(); ++i) {
        for (std::size_t j = 0; j < i; ++j) EXPECT_FALSE(different[i] == different[j]) << i << j;
    }
    for (int i = 0; i < 200; ++i) Drawn("x", {"DejaVu Sans", 5 + i * 0.05});  // displaces them
    EXPECT_TRUE(Drawn("17", plain) == different[0]);
}

TEST(QtDrawing, PicturesAreToldApartByTheirPixels) {
    Screen screen;
    QtDrawing& d = screen.drawing;
    const auto picture = [](Size size, std::vector<std::uint32_t> pixels) {
        auto image = std::make_shared<PixelImage>();
        *image = {size.width, size.height, std::move(pixels)};
        return StdPicture(PictureType::Icon, Size{}, std::move(image));
    };
    EXPECT_EQ(d.PictureHandle(picture({2, 2}, {1, 2, 3})), ObjectHandle::None);
    // Addresses are used again by the allocator; pixels must not be.
    for (std::uint32_t i = 0; i < 50; ++i) {
        const StdPicture next = picture({1, 1}, {0xFF000000 + i});
        d.DrawIconEx(screen.Get(), 0, 0, d.PictureHandle(next), 0, 0, kDrawIconNormal);
        EXPECT_EQ(screen.Image().pixel(0, 0), 0xFF000000 + i);
    }
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

}  // namespace velmora
