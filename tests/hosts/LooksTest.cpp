#include "tests/support/Looks.h"

#include "hosts/qt/drawing/QtDrawing.h"
#include "tests/hosts/WidgetSupport.h"
#include "tests/support/RepaintWalk.h"

#include <QImage>
#include <QPainter>
#include <QScreen>

#include <cmath>

namespace velmora::test {
namespace {

/// Every role in a colour of its own.
QPalette PaletteOfLooks() {
    QPalette palette;
    constexpr QRgb kColors[] = {// from WindowText to HighlightedText
                                0x100020, 0xD4D0C8, 0xFFFFFF, 0xE8F0FF, 0x807868,
                                0xB0A090, 0x000040, 0xFF00FF, 0x003000, 0xFFFFF0,
                                0xE8E0D8, 0x402010, 0x2050A0, 0xFFFF80};
    int role = 0;
    for (const QRgb color : kColors) {
        palette.setColor(static_cast<QPalette::ColorRole>(role++), QColor(color));
    }
    palette.setColor(QPalette::Disabled, QPalette::Text, QColor(0x9098A0));
    return palette;
}

/// Notes where texts are drawn: their pixels differ with the version of the font library.
class NotingDrawing : public QtDrawing {
public:
    using QtDrawing::QtDrawing;

    std::vector<QRect> texts;

    void InvalidateRect(WindowHandle, const Rect*) override {}  // the fakes' windows are no widgets
    int DrawTextA(SurfaceHandle surface, std::string_view text, Rect& rect,
                  std::uint32_t flags) override {
        if ((flags & kTextCalcRect) != 0) return QtDrawing::DrawTextA(surface, text, rect, flags);
        Rect extent;
        QtDrawing::DrawTextA(surface, text, extent, flags | kTextCalcRect);
        const auto place = [](bool middle, bool end, int space) {
            return middle ? space / 2 : end ? space : 0;
        };
        const QRect all(QPoint(rect.left, rect.top), QPoint(rect.right - 1, rect.bottom - 1));
        const int x = place(flags & kTextCenter, flags & kTextRight, all.width() - extent.right);
        const int y =
            place(flags & kTextVCenter, flags & kTextBottom, all.height() - extent.bottom);
        const QRect box(all.left() + x, all.top() + y, extent.right, extent.bottom);
        texts.push_back(box.adjusted(-1, -1, 1, 1) & all);
        return QtDrawing::DrawTextA(surface, text, rect, flags);
    }
};

/// All parts of a look below each other, and where texts are in it.
struct Painted {
    QImage image;
    std::vector<QRect> texts;
};

/// A painter with a clip of its own composes in memory; any other's image is drawn on itself.
enum class Path { Direct, Composed };

/// Of a desktop: text, ground and what is selected.
QPalette PaletteOf(QColor text, QColor button, QColor ground, QColor selected) {
    QPalette palette(text, button, button.lighter(150), button.darker(200), button.darker(130),
                     text, text, ground, button);
    palette.setColor(QPalette::Highlight, selected);
    palette.setColor(QPalette::HighlightedText, ground);
    return palette;
}

template <class Look>
Painted PaintedWithQt(const Look& look, double ratio, const QPalette& palette, Path path) {
    QWidget widget;
    widget.setPalette(palette);
    NotingDrawing drawing(&widget);
    drawing.Classic(true);
    Painted result;
    Paint(look, drawing, [&](const Rect& part, const auto& paint) {
        QImage image(QSize(look.size.width, look.size.height) * ratio, QImage::Format_RGB32);
        image.setDevicePixelRatio(ratio);
        image.fill(Qt::magenta);
        drawing.texts.clear();
        {
            QPainter painter(&image);
            if (path == Path::Composed) painter.setClipRect(image.rect());
            const QtDrawing::Surface surface(drawing, painter);
            paint(surface.Handle());
        }
        const auto device = [&](const QRectF& r) {
            return QRectF(r.topLeft() * ratio, r.size() * ratio).toAlignedRect();
        };
        const QRect area =
            device(QRectF(part.left, part.top, part.right - part.left, part.bottom - part.top));
        image.setDevicePixelRatio(1);
        const int below = result.image.height();
        QImage all(area.width(), below + area.height(), QImage::Format_RGB32);
        QPainter painter(&all);
        painter.drawImage(0, 0, result.image);
        painter.drawImage(QPoint(0, below), image, area);
        painter.end();
        for (const QRect& text : drawing.texts) {
            result.texts.push_back(device(text).translated(-area.left(), below - area.top()));
        }
        result.image = all;
    });
    return result;
}

int Distance(QRgb a, QRgb b) {
    return std::max({std::abs(qRed(a) - qRed(b)), std::abs(qGreen(a) - qGreen(b)),
                     std::abs(qBlue(a) - qBlue(b))});
}

/// White where the pictures differ: scaled pictures may by their rounding, texts by their
/// smoothing, as long as they stand where they stood. Nothing when they do not.
std::optional<QImage> DifferenceOf(const Painted& painted, const QImage& wanted) {
    constexpr int kRounding = 3;       // of 255
    constexpr double kSmoothing = 16;  // of 255, on the average of a text's box
    if (painted.image.size() != wanted.size()) return wanted;
    QImage difference(wanted.size(), QImage::Format_Mono);
    difference.fill(0);
    const QImage none(difference.copy());
    QImage isText(difference);
    for (const QRect& text : painted.texts) {
        const QRect box = text & wanted.rect();
        double sum = 0;
        for (int y = box.top(); y <= box.bottom(); ++y) {
            for (int x = box.left(); x <= box.right(); ++x) {
                isText.setPixel(x, y, 1);
                sum += Distance(painted.image.pixel(x, y), wanted.pixel(x, y));
            }
        }
        if (sum <= kSmoothing * box.width() * box.height()) continue;
        for (int x = box.left(); x <= box.right(); ++x) difference.setPixel(x, box.center().y(), 1);
    }
    for (int y = 0; y < wanted.height(); ++y) {
        for (int x = 0; x < wanted.width(); ++x) {
            const int distance = Distance(painted.image.pixel(x, y), wanted.pixel(x, y));
            if (distance > kRounding && isText.pixelIndex(x, y) == 0) difference.setPixel(x, y, 1);
        }
    }
    return difference == none ? std::nullopt : std::optional(difference);
}

template <class Look>
void ExpectReference(const Look& look, double ratio = 1, const std::string& palette = {}) {
    const QPalette colors = palette == "_dark" ? PaletteOf(0xE0E0E0, 0x353535, 0x1E1E1E, 0x3DAEE9)
                            : palette == "_contrast"
                                ? PaletteOf(Qt::white, Qt::black, Qt::black, Qt::yellow)
                                : PaletteOfLooks();
    const Painted painted = PaintedWithQt(look, ratio, colors, Path::Direct);
    EXPECT_EQ(painted.image, PaintedWithQt(look, ratio, colors, Path::Composed).image) << look.name;
    const std::string name = look.name + (ratio == 1 ? "" : "_large") + palette;
    const Reference reference = ReferenceOf(name, "hosts", ".png");
    const auto file = [](const std::string& path) { return QString::fromStdString(path); };
    if (RenewsLooks()) {
        ASSERT_TRUE(painted.image.save(file(reference.kept))) << reference.kept;
        return;
    }
    const QImage wanted(file(reference.kept));
    ASSERT_FALSE(wanted.isNull()) << reference.kept << " is missing";
    const auto difference = DifferenceOf(painted, wanted);
    if (!difference) return;
    painted.image.save(file(reference.actual));
    difference->save(file(reference.difference));
    ADD_FAILURE() << reference.actual << " differs: see " << reference.difference;
}

TEST(Looks, ArePaintedAsTheirPicturesShow) {
    for (const BoxLook& look : BoxLooks()) ExpectReference(look);
    for (const Look& look : Looks()) {
        ExpectReference(look);
        if (look.name == "flat" || look.name == "disabled_arrows") ExpectReference(look, 1.5);
        if (look.name == "raised") ExpectReference(look, 2);
        for (const char* const palette : {"_dark", "_contrast"}) {
            if (look.name == "raised" || look.name == "flat_days")
                ExpectReference(look, 1, palette);
        }
    }
    ExpectReference(BoxLooks()[1], 1.5);  // focused
    ExpectReference(BoxLooks()[1], 1, "_dark");
}

TEST(VmCalendarWidget, RepaintOfAPartShowsWhatARepaintOfAllShows) {
    Widget widget;
    Prepare(widget);
    RepaintWalk walk(widget.calendar());
    for (int i = 0; i < 1'500; ++i) {
        std::string done = "resize";
        if (walk.Random(1, 100) == 1) {
            widget.resize(walk.Random(120, 200), walk.Random(100, 180));
            widget.setLayoutDirection(static_cast<Qt::LayoutDirection>(walk.Random(0, 1)));
        } else {
            done = walk.Step();
        }
        QApplication::processEvents();
        const QImage screen = widget.screen()->grabWindow(widget.winId()).toImage();
        QImage anew(widget.size(), QImage::Format_RGB32);
        widget.render(&anew);
        ASSERT_FALSE(DifferenceOf({screen, {}}, anew)) << "step " << i << ": " << done;
    }
}

}  // namespace
}  // namespace velmora::test
