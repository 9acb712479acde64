#include <VelmoraCalendar/PropertyPageDialog.h>
#include <VelmoraCalendar/VmCalDropDownWidget.h>
#include <calendar/VmCalendar.h>

#include <QClipboard>
#include <QDataWidgetMapper>
#include <QFile>
#include <QHelpEvent>
#include <QItemEditorFactory>
#include <QSignalSpy>
#include <QStandardItemModel>
#include <QStyledItemDelegate>
#include <QTest>
#include <QToolTip>
#include <QUiLoader>

#include <algorithm>
#include <memory>

using namespace velmora;

/// What a program of others does with the installed widgets.
class Outside : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void loadedFormHasTheProgramsClasses() {
#ifndef VELMORA_QT_SHARED
        QSKIP("a plug-in with the static library has classes of its own");
#endif
        QFile file(QStringLiteral(FORM));
        QVERIFY(file.open(QIODevice::ReadOnly));
        const std::unique_ptr<QWidget> form(QUiLoader().load(&file));
        auto* const calendar = form->findChild<VmCalendarWidget*>();
        auto* const box = form->findChild<VmCalDropDownWidget*>();
        QVERIFY(calendar && box);
        QVERIFY(PropertyPageDialog::Open(*calendar) && PropertyPageDialog::Open(*box));
        calendar->calendar().LetMember("ShowWeekend", Variant(false));
        QVERIFY(!calendar->showWeekend());
        try {
            calendar->calendar().LetMember("Appearance", Variant(7));
            QFAIL("not refused");
        } catch (const AutomationError& error) {
            QCOMPARE(error.Number(), ErrorNumber::InvalidPropertyValue);
        }
    }

    void modelsShowAndTakeTheDate() {
        const QDate first(2024, 5, 15), second(2024, 6, 7);
        QStandardItemModel model(1, 1);
        const QModelIndex cell = model.index(0, 0);
        model.setData(cell, first);
        VmCalDropDownWidget box;
        box.setDateValue(QDateTime(second, QTime(9, 30)));
        QDataWidgetMapper mapper;
        mapper.setModel(&model);
        mapper.addMapping(&box, 0);
        mapper.toFirst();
        QCOMPARE(box.dateValue(), QDateTime(first, QTime(9, 30)));
        box.setDate(second);
        QVERIFY(mapper.submit());
        QCOMPARE(cell.data().toDate(), second);

        QItemEditorFactory editors;
        editors.registerEditor(QMetaType::QDate,
                               new QStandardItemEditorCreator<VmCalDropDownWidget>);
        QStyledItemDelegate delegate;
        delegate.setItemEditorFactory(&editors);
        const std::unique_ptr<QWidget> editor(delegate.createEditor(nullptr, {}, cell));
        auto* const dates = qobject_cast<VmCalDropDownWidget*>(editor.get());
        QVERIFY(dates);
        delegate.setEditorData(dates, cell);
        QCOMPARE(dates->date(), second);
        dates->setDate(first);
        delegate.setModelData(dates, &model, cell);
        QCOMPARE(cell.data().toDate(), first);
    }

    void styleSheetsArriveAndTheBorderIsDrawn() {
        VmCalendarWidget calendar;
        VmCalDropDownWidget box;
        for (VmDateWidget* const widget :
             {static_cast<VmDateWidget*>(&calendar), static_cast<VmDateWidget*>(&box)}) {
            widget->setStyleSheet(
                "background-color: #102030; color: #fedcba; selection-color: #111213;"
                "font: bold 20pt 'DejaVu Serif'; border: 3px solid #00ff00");
            const QImage image = widget->grab().toImage();
            QCOMPARE(image.pixelColor(2, 2), QColor("#00ff00"));
            QCOMPARE(widget->monthBackColor(), QColor("#102030"));
            QCOMPARE(widget->dayDefaultForeColor(), QColor("#fedcba"));
            QCOMPARE(widget->selectedDayForeColor(), QColor("#111213"));
            QVERIFY(widget->dayFont().bold() && widget->dayFont().pointSize() == 20);
            widget->setMonthBackColor(Qt::red);
            widget->resetMonthBackColor();
            QCOMPARE(widget->monthBackColor(), QColor("#102030"));
        }
    }

    void daysHaveToolTipsAndTheBoxCopiesItsText() {
        VmCalendarWidget calendar;
        calendar.resize(280, 220);
        calendar.setDateValue(QDate(2024, 5, 15));
        calendar.show();
        VmCalDropDownWidget box;
        box.setDate(QDate(2024, 5, 15));
        box.show();
        QVERIFY(QTest::qWaitForWindowActive(&box));
        box.setFocus();
        box.setDropDownState(true);
        const auto isOpen = [](QWidget* widget) {
            return widget->isVisible() && widget->windowType() == Qt::ToolTip;
        };
        const QWidgetList windows = QApplication::topLevelWidgets();
        const auto open = std::find_if(windows.begin(), windows.end(), isOpen);
        QVERIFY(open != windows.end());
        QVERIFY((*open)->testAttribute(Qt::WA_AlwaysShowToolTips));
        for (int day = 1; day <= 31; ++day) {
            calendar.setDayToolTip(QDate(2024, 5, day), "of the calendar");
            box.setDayToolTip(QDate(2024, 5, day), "of the box");
        }
        for (QWidget* const shown : {static_cast<QWidget*>(&calendar), *open}) {
            for (const QPoint& place : {shown->rect().center(), QPoint(3, 3)}) {
                const bool isDay = place != QPoint(3, 3);
                QHelpEvent rest(QEvent::ToolTip, place, shown->mapToGlobal(place));
                QCOMPARE(QApplication::sendEvent(shown, &rest) && rest.isAccepted(), isDay);
                if (isDay)
                    QCOMPARE(QToolTip::text(), shown == *open ? "of the box" : "of the calendar");
            }
        }
        box.setDropDownState(false);
        QTest::keyClick(&box, Qt::Key_C, Qt::ControlModifier);
        QCOMPARE(QGuiApplication::clipboard()->text(), box.text());
    }

    void signalsTellWhatASpyReads() {
        VmCalDropDownWidget box;
        box.setDate(QDate(2024, 5, 15));
        connect(&box, &VmCalDropDownWidget::keyDown,
                [](VmKeyArguments* key) { key->setProperty("keyCode", 0x27); });
        QSignalSpy keys(&box, &VmCalDropDownWidget::keyDown);
        QSignalSpy names(&box, &VmCalDropDownWidget::propertyChanged);
        QTest::keyClick(&box, Qt::Key_Left);
        QCOMPARE(box.date(), QDate(2024, 5, 16));  // left is right
        QVERIFY(keys.at(0).at(0).canConvert<QObject*>());
        QCOMPARE(names.at(0).at(0).toString(), "dateValue");
    }
};

QTEST_MAIN(Outside)
#include "widgets.moc"
