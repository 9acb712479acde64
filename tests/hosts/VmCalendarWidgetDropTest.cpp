#include "tests/hosts/WidgetSupport.h"

#include <gtest/gtest.h>

#include <QMimeData>
#include <QUrl>

#include <memory>

namespace velmora {
namespace {

struct Drag {
    std::int32_t effect;
    int state;  // 3 for the drop
    std::string text;

    friend bool operator==(const Drag&, const Drag&) = default;
};

TEST(VmCalendarWidget, ManualDropIsAskedForAndAnsweredByItsSlots) {
    Widget widget;
    Prepare(widget);
    QMimeData content;
    content.setText("a text");
    EXPECT_FALSE(widget.acceptDrops());
    widget.setOleDropMode(Widget::OLEManual);

    std::vector<Drag> drags;
    qint32 answer = 2;
    const auto note = [&](DataRef& data, qint32& effect, int state) {
        const Variant text = data->GetData(1);
        drags.push_back({effect, state, text.As<std::string>() ? *text.As<std::string>() : "-"});
        if (state != 1) effect = answer;
    };
    QObject::connect(&widget, &Widget::oleDragOver,
                     [&](DataRef& data, qint32& effect, int, int, float, float, int state) {
                         note(data, effect, state);
                     });
    QObject::connect(&widget, &Widget::oleDragDrop,
                     [&](DataRef& data, qint32& effect, int, int shift, float x, float y) {
                         EXPECT_EQ(shift, 0);
                         EXPECT_EQ(QPointF(x, y), QPointF(20, 30));
                         note(data, effect, 3);
                     });
    const auto copyOrMove = Qt::CopyAction | Qt::MoveAction;
    EXPECT_EQ(DragAndDrop(&widget, content, copyOrMove), Qt::MoveAction);
    EXPECT_EQ(drags, (std::vector<Drag>{{3, 0, "a text"}, {3, 3, "a text"}}));

    drags.clear();
    answer = 0;
    EXPECT_EQ(DragAndDrop(&widget, content, copyOrMove), Qt::IgnoreAction);
    EXPECT_EQ(drags, (std::vector<Drag>{{3, 0, "a text"}, {0, 1, "a text"}}));
    answer = 4;  // what the source does not allow
    EXPECT_EQ(DragAndDrop(&widget, content, copyOrMove), Qt::IgnoreAction);
    answer = 3;  // not narrowed down
    EXPECT_EQ(DragAndDrop(&widget, content, copyOrMove), Qt::CopyAction);
}

TEST(VmCalendarWidget, DroppedDataHaveTheirFormats) {
    Widget widget;
    Prepare(widget);
    widget.setOleDropMode(Widget::OLEManual);
    DataRef dropped;
    QObject::connect(&widget, &Widget::oleDragDrop, [&](DataRef& data) { dropped = data; });
    auto content = std::make_unique<QMimeData>();
    QImage image(3, 2, QImage::Format_RGB32);
    image.fill(Qt::red);
    content->setImageData(image);
    content->setUrls({QUrl::fromLocalFile("/a b"), QUrl::fromLocalFile("/c")});
    DragAndDrop(&widget, *content);
    ASSERT_TRUE(dropped);
    EXPECT_TRUE(dropped->HasFormat(2) && dropped->HasFormat(15));
    EXPECT_FALSE(dropped->HasFormat(3));
    EXPECT_EQ(dropped->GetData(15), Variant("/a b\n/c"));
    const Variant picture = dropped->GetData(2);
    ASSERT_TRUE(picture.As<ObjectRef>());
    const auto bitmap = std::dynamic_pointer_cast<StdPicture>(*picture.As<ObjectRef>());
    ASSERT_TRUE(bitmap && bitmap->Image());
    EXPECT_EQ(bitmap->Image()->width, 3);
    EXPECT_EQ(bitmap->Image()->pixels.front(), 0xFFFF0000u);
    content.reset();
    EXPECT_FALSE(dropped->HasFormat(2)) << "the data end with the drag";
}

TEST(VmCalendarWidget, AutomaticDropTakesADateThatCanBeSelected) {
    struct Case {
        const char* text;
        QDate after;
    };
    Widget widget;
    Prepare(widget);
    widget.setDateMax(QDate(2024, 12, 1));
    widget.setOleDropMode(Widget::OLEAutomatic);
    for (const Case& c :
         {Case{"6/7/2024", QDate(2024, 6, 7)}, Case{"12/31/2024", QDate(2024, 12, 31)},
          Case{"1/1/2025", QDate()}, Case{"no date", QDate()}, Case{"", QDate()}}) {
        SCOPED_TRACE(c.text);
        const QDate before = widget.dateValue();
        QMimeData content;
        content.setText(c.text);
        const auto wanted = c.after.isValid() ? Qt::CopyAction : Qt::IgnoreAction;
        EXPECT_EQ(DragAndDrop(&widget, content), wanted);
        EXPECT_EQ(widget.dateValue(), c.after.isValid() ? c.after : before);
    }
}

}  // namespace
}  // namespace velmora
