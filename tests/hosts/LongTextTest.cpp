#include "hosts/qt/QtDrawing.h"
#include "hosts/qt/VmCalendarWidget.h"

#include "platform/DrawingScopes.h"
#include "platform/TextCut.h"

#include <gtest/gtest.h>

#include <QImage>
#include <QPainter>

namespace velmora {
namespace {

QImage Drawn(std::string_view text, double points) {
    QImage image(90, 30, QImage::Format_RGB32);
    image.fill(Qt::white);
    QPainter painter(&image);
    QtDrawing drawing;
    QtDrawing::Surface surface(drawing, painter);
    const OwnedObject font(drawing, drawing.CreateFontIndirectA({"DejaVu Sans", points}));
    const Selection selected(drawing, surface.Handle(), font);
    Rect room{2, 2, 88, 28};
    drawing.DrawTextA(surface.Handle(), text, room, kTextLeft | kTextSingleLine | kTextNoPrefix);
    return image;
}

TEST(LongText, CutItLooksAsTheWholeDoes) {
    const std::string hebrew = "\xD7\xA9\xD7\x9C\xD7\x95\xD7\x9D ";
    const std::pair<std::string, std::string> texts[] = {
        {"begin ", "Wide and narrow, "},
        {"e\xCC\x81", "e\xCC\x81\xCC\x82i"},  // with combining marks
        {"", hebrew},
        {"Left ", hebrew},
        {hebrew, "right "},
        {"", "\xE2\x80\x8D\xF0\x9F\x93\x85"},
        {"", "ill"}};
    for (const auto& [first, part] : texts) {
        std::string text = first;
        while (!CutToWidth(text, 86, kTextLeft)) text += part;
        text += "\xC3\xBC, end";
        const auto cut = CutToWidth(text, 86, kTextLeft);
        for (const double points : {1.0, 9.0, 30.0}) {
            EXPECT_EQ(Drawn(*cut, points), Drawn(text, points)) << part << ", " << points << " pt";
        }
    }
}

TEST(LongText, AHugeCaptionIsPaintedLikeAnyOther) {
    VmCalendarWidget widget;
    widget.calendar().DayCaptionAlignment(VmTextTopLeft);
    widget.resize(400, 300);
    widget.calendar().Days()->Item(5)->Caption(std::string(10u << 20, 'i'));
    const QImage huge = widget.grab().toImage();
    widget.calendar().Days()->Item(5)->Caption(std::string(200, 'i'));
    EXPECT_EQ(huge, widget.grab().toImage());
}

}  // namespace
}  // namespace velmora
