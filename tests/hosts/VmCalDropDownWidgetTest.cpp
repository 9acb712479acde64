#include "hosts/qt/VmCalDropDownWidget.h"

#include "dropdown/VmCalDropDown.h"
#include "hosts/qt/QtDropDownForm.h"
#include "tests/hosts/PropertyWalk.h"
#include "tests/hosts/WidgetSupport.h"

#include <gtest/gtest.h>

#include <QImage>
#include <QMimeData>
#include <QPointer>
#include <QScrollArea>

#include <functional>

namespace velmora {
namespace {

using Box = VmCalDropDownWidget;

QtDropDownForm& TheForm() { return *QtDropDownForm::Shared(); }

/// A box at noon of 15 May 2024 in a window of its own.
class BoxWindow : public QWidget {
public:
    BoxWindow() : box(new Box(this)) {
        setLocale(QLocale(QLocale::English, QLocale::UnitedStates));
        setPalette(TestPalette());
        box->setGeometry(10, 10, 150, 24);
        box->setDateValue(QDateTime(kMay15, QTime(12, 0)));
        resize(300, 100);
        show();
        activateWindow();
        QApplication::processEvents();
        connect(box, &Box::closeUp, this, [this] { ++closings; });
    }

    ~BoxWindow() override { delete box; }  // while its signals can still be counted

    void Key(int key, Qt::KeyboardModifiers modifiers = {}) {
        if (box) SendKey(box, QEvent::KeyPress, key, modifiers);
    }
    /// A press and release on a day of the open calendar.
    static void ClickDay(QDate date) {
        Click(&TheForm(), CellOf(TheForm().Form().Calendar(), TheForm().size(), date).center());
    }

    QPointer<Box> box;
    int closings = 0;
};

void ExpectNothingRuns(const char* what) {
    EXPECT_FALSE(TheForm().isVisible()) << what;
    EXPECT_EQ(QWidget::mouseGrabber(), nullptr) << what;
    for (const QTimer* const timer : TheForm().findChildren<QTimer*>()) {
        EXPECT_FALSE(timer->isActive()) << what;
    }
}

TEST(VmCalDropDownWidget, PropertiesFollowTheTable) {
    ExpectFollowsTheTable<Box>(test::kBoxRows, {"dropDownState", "oleDropMode"});
}

TEST(VmCalDropDownWidget, LooksLikeItsState) {
    BoxWindow window;
    Box& box = *window.box;
    const auto ground = [&] { return ImageOf(box).pixelColor(box.width() - 25, 6); };
    const QRect button(box.width() - 18, 2, 16, box.height() - 4);
    box.clearFocus();
    const QImage normal = ImageOf(box);
    EXPECT_EQ(ground(), box.palette().color(QPalette::Active, QPalette::Base));
    box.setFocus();
    EXPECT_EQ(ground(), QColor(Qt::blue));
    EXPECT_EQ(ImageOf(box).copy(button), normal.copy(button));
    SendMouse(&box, QEvent::MouseButtonPress, {140, 12});
    EXPECT_NE(ImageOf(box).copy(button), normal.copy(button));
    SendMouse(&box, QEvent::MouseButtonRelease, {140, 12});
    EXPECT_EQ(ImageOf(box).copy(button), normal.copy(button));
    box.setEnabled(false);
    EXPECT_EQ(ground(), box.palette().color(QPalette::Active, QPalette::Base));
    EXPECT_NE(ImageOf(box).copy(button), normal.copy(button));
    EXPECT_NE(ImageOf(box).copy(4, 4, 100, 16), normal.copy(4, 4, 100, 16)) << "text is not grey";
    for (const QSize size : {QSize(1, 1), QSize(18, 20), QSize(400, 3)}) {
        box.resize(size);
        EXPECT_FALSE(ImageOf(box).isNull());
    }
}

TEST(VmCalDropDownWidget, EveryEndOfTheOpenCalendarLeavesNothingRunning) {
    const std::pair<const char*, std::function<void(BoxWindow&)>> cases[] = {
        {"a day",
         [](BoxWindow& w) {
             w.ClickDay({2024, 5, 20});
         }},
        {"press outside",
         [](BoxWindow&) {
             Click(&TheForm(), {-50, -50});
         }},
        {"state", [](BoxWindow& w) { w.box->setDropDownState(false); }},
        {"hidden", [](BoxWindow& w) { w.box->hide(); }},
        {"window hidden", [](BoxWindow& w) { w.hide(); }},
        {"window moved", [](BoxWindow& w) { w.move(w.pos() + QPoint(9, 9)); }},
        {"resized", [](BoxWindow& w) { w.box->resize(160, 24); }},
        {"disabled", [](BoxWindow& w) { w.setEnabled(false); }},
        {"focus lost", [](BoxWindow& w) { w.box->clearFocus(); }},
        {"deleted", [](BoxWindow& w) { delete w.box; }},
    };
    for (const auto& [name, end] : cases) {
        BoxWindow window;
        window.box->setFocus();
        window.Key(Qt::Key_F4);
        EXPECT_TRUE(TheForm().isVisible()) << name;
        EXPECT_EQ(QWidget::mouseGrabber(), &TheForm()) << name;
        end(window);
        ExpectNothingRuns(name);
        QApplication::processEvents();
        EXPECT_EQ(window.closings, window.box ? 1 : 0) << name;
        EXPECT_TRUE(!window.box || window.box->dateValue().time() == QTime(12, 0)) << name;
    }
}

TEST(VmCalDropDownWidget, OpenCalendarLooksAsItsBox) {
    BoxWindow window;
    window.box->setDropDownWidth(321);
    window.box->setDropDownAlignment(Box::RightJustified);
    window.Key(Qt::Key_F4);
    EXPECT_EQ(TheForm().size(), QSize(321, 200));
    EXPECT_EQ(TheForm().pos(), window.box->mapToGlobal(QPoint(150 - 1 - 321, 24)));
    EXPECT_EQ(TheForm().palette().color(QPalette::Highlight), QColor(Qt::blue));
    EXPECT_EQ(TheForm().locale().language(), QLocale::English);
    window.setLocale(QLocale(QLocale::German, QLocale::Germany));
    window.setPalette(QPalette(QColor(50, 50, 50)));
    EXPECT_EQ(TheForm().locale().language(), QLocale::German);
    EXPECT_EQ(TheForm().palette().color(QPalette::Button), QColor(50, 50, 50));
    EXPECT_EQ(window.box->text(), "15.05.2024");
    EXPECT_TRUE(TheForm().isVisible());
}

TEST(VmCalDropDownWidget, ClosesWhenWhatItLiesOnIsScrolled) {
    QScrollArea area;
    auto* const content = new QWidget;
    content->resize(500, 500);
    auto* const box = new Box(content);
    area.setWidget(content);
    area.show();
    SendKey(box, QEvent::KeyPress, Qt::Key_F4);
    EXPECT_TRUE(TheForm().isVisible());
    content->move(0, -20);
    ExpectNothingRuns("scrolled");
}

TEST(VmCalDropDownWidget, DropsAreTakenOrAskedForAsOnACalendar) {
    BoxWindow window;
    Box& box = *window.box;
    QMimeData content;
    content.setText(QStringLiteral("6/7/2024"));
    EXPECT_FALSE(box.acceptDrops());
    box.setOleDropMode(VmCalendarWidget::OLEAutomatic);
    EXPECT_EQ(DragAndDrop(&box, content), Qt::CopyAction);
    EXPECT_EQ(box.dateValue().date(), QDate(2024, 6, 7));

    content.setText(QStringLiteral("7/8/2024"));
    box.setOleDropMode(VmCalendarWidget::OLEManual);
    Names names;
    QObject::connect(&box, &Box::oleDragOver, [&] { names.push_back("over"); });
    QObject::connect(&box, &Box::oleDragDrop, [&] { names.push_back("drop"); });
    EXPECT_EQ(DragAndDrop(&box, content), Qt::CopyAction);
    EXPECT_EQ(names, (Names{"over", "drop"}));
    EXPECT_EQ(box.dateValue().date(), QDate(2024, 6, 7));
}

TEST(VmCalDropDownWidget, ASlotMayDeleteTheBoxUnderADrag) {
    for (const bool onDrop : {false, true}) {
        BoxWindow window;
        const QPointer<Box> box(window.box);
        box->setOleDropMode(VmCalendarWidget::OLEManual);
        ConnectNth(
            onDrop, box.data(), [&] { delete window.box; }, &Box::oleDragOver, &Box::oleDragDrop);
        QMimeData content;
        content.setText(QStringLiteral("6/7/2024"));
        DragAndDrop(box.data(), content);
        EXPECT_TRUE(box.isNull()) << onDrop;
        QApplication::processEvents();
    }
}

}  // namespace
}  // namespace velmora
