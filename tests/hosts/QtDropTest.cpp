#include "VelmoraCalendar/VmCalDropDownWidget.h"
#include "tests/hosts/WidgetSupport.h"

#include <QDragEnterEvent>
#include <QImage>
#include <QMimeData>
#include <QUrl>

namespace velmora {
namespace {

/// Drags the content over the widget and drops it there when it may; returns what the drop did.
Qt::DropAction DragAndDrop(QPointer<QWidget> widget, const QMimeData& content,
                           Qt::DropActions actions = Qt::CopyAction) {
    const QPoint at(20, 30);
    QDragEnterEvent enter(at, actions, &content, Qt::LeftButton, Qt::ShiftModifier);
    QApplication::sendEvent(widget, &enter);
    QDragMoveEvent move(at, actions, &content, Qt::LeftButton, {});
    if (widget) QApplication::sendEvent(widget, &move);
    if (!widget) return Qt::IgnoreAction;
    if (!enter.isAccepted() || !move.isAccepted()) {
        QDragLeaveEvent leave;
        QApplication::sendEvent(widget, &leave);
        return Qt::IgnoreAction;
    }
    QDropEvent drop(at, actions, &content, Qt::LeftButton, {});
    QApplication::sendEvent(widget, &drop);
    return drop.isAccepted() ? drop.dropAction() : Qt::ActionMask;  // promised, and not taken
}

Qt::DropAction DropText(QWidget& widget, const char* text,
                        Qt::DropActions actions = Qt::CopyAction) {
    QMimeData content;
    content.setText(text);
    return DragAndDrop(&widget, content, actions);
}

template <class>
class Drop : public testing::Test {};
using Controls = testing::Types<VmCalendarWidget, VmCalDropDownWidget>;
TYPED_TEST_SUITE(Drop, Controls);

TYPED_TEST(Drop, SlotsAnswerWhenManualAndADateIsTakenWhenAutomatic) {
    TypeParam widget;
    Prepare(widget);
    EXPECT_FALSE(widget.acceptDrops());
    widget.setOleDropMode(Widget::OLEManual);

    Names drags;  // the effect, the state or "drop", and the text
    qint32 answer = 2;
    const auto note = [&](VmDragArguments& drag, const std::string& state) {
        drags.push_back(std::to_string(drag.effect()) + ' ' + state + ' ' +
                        *drag.data()->GetData(1).template As<std::string>());
        if (state != "1") drag.setEffect(answer);
    };
    QObject::connect(&widget, &TypeParam::oleDragOver,
                     [&](VmDragArguments* drag) { note(*drag, std::to_string(drag->state())); });
    QObject::connect(&widget, &TypeParam::oleDragDrop, [&](VmDragArguments* drag) {
        EXPECT_EQ(drag->shift(), 0);
        EXPECT_EQ(QPointF(drag->x(), drag->y()), QPointF(20, 30));
        note(*drag, "drop");
    });
    const auto copyOrMove = Qt::CopyAction | Qt::MoveAction;
    EXPECT_EQ(DropText(widget, "6/7/2024", copyOrMove), Qt::MoveAction);
    EXPECT_EQ(drags, (Names{"3 0 6/7/2024", "3 drop 6/7/2024"}));
    EXPECT_EQ(widget.property("dateValue").toDate(), kMay15);

    drags.clear();
    answer = 0;
    EXPECT_EQ(DropText(widget, "text", copyOrMove), Qt::IgnoreAction);
    EXPECT_EQ(drags, (Names{"3 0 text", "0 1 text"}));
    answer = 4;  // what the source does not allow
    EXPECT_EQ(DropText(widget, "text", copyOrMove), Qt::IgnoreAction);
    answer = 3;  // not narrowed down
    EXPECT_EQ(DropText(widget, "text", copyOrMove), Qt::CopyAction);

    widget.setOleDropMode(Widget::OLEAutomatic);
    widget.setDateMax(QDate(2030, 12, 31));
    for (const char* const text : {"no date", "1/1/2031", "6 pm", "0:00"}) {
        EXPECT_EQ(DropText(widget, text), Qt::IgnoreAction) << text;
    }
    EXPECT_EQ(widget.property("dateValue").toDate(), kMay15);
    EXPECT_EQ(DropText(widget, "6/7/2024"), Qt::CopyAction);
    EXPECT_EQ(widget.property("dateValue").toDate(), QDate(2024, 6, 7));
}

TYPED_TEST(Drop, AnySlotMayDeleteTheWidget) {
    for (const std::string when : {"over", "refused", "drop", "start"}) {
        QWidget window;
        window.setAcceptDrops(true);
        const QPointer<TypeParam> widget(new TypeParam(&window));
        widget->setOleDropMode(Widget::OLEManual);
        window.show();
        QObject::connect(widget, &TypeParam::oleDragOver, [&](VmDragArguments* drag) {
            if (when == "refused") drag->setEffect(0);
            if (when != "drop") delete widget;
        });
        QObject::connect(widget, &TypeParam::oleDragDrop, [&] { delete widget; });
        QObject::connect(widget, &TypeParam::oleStartDrag, [&] { delete widget; });
        if (when == "start") widget->oleDrag();
        if (widget) DropText(*widget, "x");
        EXPECT_FALSE(widget) << when;
        // The drag goes on over the window around.
        QMimeData content;
        QDragMoveEvent move(QPoint(1, 1), Qt::CopyAction, &content, Qt::LeftButton, {});
        QApplication::sendEvent(&window, &move);
        QApplication::processEvents();
    }
}

TEST(DroppedData, HaveTheirFormatsUntilTheDragEnds) {
    Widget widget;
    widget.setOleDropMode(Widget::OLEManual);
    DataRef dropped;
    QObject::connect(&widget, &Widget::oleDragDrop,
                     [&](VmDragArguments* drag) { dropped = drag->data(); });
    auto content = std::make_unique<QMimeData>();
    QImage image(3, 2, QImage::Format_RGB32);
    image.fill(Qt::red);
    content->setImageData(image);
    content->setUrls({QUrl::fromLocalFile("/a b"), QUrl::fromLocalFile("/c")});
    DragAndDrop(&widget, *content);
    ASSERT_TRUE(dropped);
    EXPECT_TRUE(dropped->HasFormat(2) && dropped->HasFormat(15) && !dropped->HasFormat(3));
    EXPECT_EQ(dropped->GetData(15), Variant("/a b\n/c"));
    const auto bitmap = ToObject<StdPicture>(dropped->GetData(2));
    EXPECT_EQ(bitmap->Image()->pixels, std::vector<std::uint32_t>(6, 0xFFFF0000));
    content.reset();
    EXPECT_FALSE(dropped->HasFormat(2));
}

}  // namespace
}  // namespace velmora
