#include "dropdown/VmCalDropDown.h"
#include "hosts/qt/PropertyPageDialog.h"
#include "hosts/qt/QtConversions.h"
#include "hosts/qt/VmCalDropDownWidget.h"
#include "tests/hosts/PageInput.h"

#include <gtest/gtest.h>

#include <QPointer>
#include <QTabWidget>

#include <memory>

namespace velmora {
namespace {

const QLocale kEnglish(QLocale::English, QLocale::UnitedStates);

std::unique_ptr<VmCalendarWidget> NewCalendar() {
    auto calendar = std::make_unique<VmCalendarWidget>();
    calendar->setLocale(kEnglish);
    calendar->setDateValue(QDate(2024, 5, 15));
    return calendar;
}

std::unique_ptr<VmCalDropDownWidget> NewBox() {
    auto box = std::make_unique<VmCalDropDownWidget>();
    box->setLocale(kEnglish);
    box->setDateValue(QDateTime(QDate(2024, 5, 15), QTime(9, 30)));
    return box;
}

/// A dialog for these objects; the first is edited.
struct Pages {
    explicit Pages(std::vector<AutomationObject*> objects) : dialog(kEnglish) {
        dialog.SelectionChanged(objects);
        dialog.show();
    }
    std::string Apply() {
        return MessagesOf([this] { Button(dialog, "Apply").click(); });
    }
    std::string Accept() {
        return MessagesOf([this] { Button(dialog, "OK").click(); });
    }
    bool IsChanged() { return Button(dialog, "Apply").isEnabled(); }

    PropertyPageDialog dialog;
};

/// What is chosen or typed in one control of a page, and the property that has it afterwards.
struct Edit {
    const char* control;
    const char* shown;  // before
    const char* input;
    const char* property;
    Variant result;
};

void ExpectEdits(QWidget& control, const std::vector<Edit>& edits) {
    AutomationObject& object = *AutomationOf(control);
    Pages pages({&object});
    for (const Edit& edit : edits) {
        SCOPED_TRACE(edit.control);
        EXPECT_FALSE(pages.IsChanged());
        EXPECT_EQ(Shown(pages.dialog, edit.control), edit.shown);
        Enter(pages.dialog, edit.control, edit.input);
        EXPECT_TRUE(pages.IsChanged());
        EXPECT_EQ(pages.Apply(), "");
        EXPECT_EQ(object.GetMember(edit.property), edit.result);
    }
}

Variant On(int year, int month, int day) { return ToDate(QDate(year, month, day)); }
Variant Number(std::int32_t number) { return number; }

const std::vector<Edit> kDayEdits = {
    {"cboFirstDayOfWeek", "VmSunday", "VmMonday", "FirstDayOfWeek", Number(2)},
    {"cboDayAppearance", "VmAppearance3D", "VmAppearanceFlat", "DayAppearance", Number(0)},
    {"cboDayNumberAlignment", "VmTextTopRight", "VmTextTopLeft", "DayNumberAlignment", Number(0)},
    {"cboDayCaptionAlignment", "VmTextBottomCenter", "VmTextMiddleLeft", "DayCaptionAlignment",
     Number(1)},
    {"cboDayPicAlignment", "VmPictTopLeft", "VmPictTile", "DayPictureAlignment", Number(10)},
    {"cboWeekDayDisplay", "VmWeekDayAbbrName", "VmWeekDayLetter", "WeekDayDisplay", Number(3)},
    {"chkShowWeekend", "true", "false", "ShowWeekend", false},
    {"cboWeekDayCaptionAlignment", "VmTextMiddleCenter", "VmTextBottomLeft",
     "WeekDayCaptionAlignment", Number(2)},
    {"cboWeekDayAppearance", "VmAppearance3D", "VmAppearanceFlat", "WeekDayAppearance", Number(0)},
    {"cboMonthDisplay", "VmMonthFullName", "VmMonthAbbrName", "MonthDisplay", Number(1)},
    {"cboMonthAppearance", "VmAppearance3D", "VmAppearanceFlat", "MonthAppearance", Number(0)},
    {"cboMonthYearSelStyle", "VmMonthSelNone", "VmMonthSelArrows", "MonthYearSelStyle", Number(1)},
};

TEST(PropertyPageDialog, EditsEveryPropertyOfACalendar) {
    const auto calendar = NewCalendar();
    ExpectEdits(*calendar, kDayEdits);
    ExpectEdits(*calendar,
                {{"cboAppearance", "VmAppearance3D", "VmAppearanceFlat", "Appearance", Number(0)},
                 {"cboMonthYearSelStyle", "VmMonthSelArrows", "VmMonthSelScrollbar",
                  "MonthYearSelStyle", Number(3)},
                 {"txtDateValue", "5/15/2024", "Jun 7, 2024", "DateValue", "6/7/2024"},
                 {"txtDateMin", "1/1/1000", "2/14/2020", "DateMin", On(2020, 2, 1)},
                 {"txtDateMin", "2/1/2020", "3/1/2020", "DateMin", On(2020, 3, 1)},
                 {"txtDateMax", "12/31/2999", "2/14/2030", "DateMax", On(2030, 2, 28)}});
    EXPECT_EQ(Pages({AutomationOf(*calendar)}).dialog.findChild<QTabWidget*>()->count(), 2);
}

TEST(PropertyPageDialog, EditsEveryPropertyOfADateBox) {
    const auto box = NewBox();
    ExpectEdits(*box, kDayEdits);
    ExpectEdits(*box, {{"cboAppearance", "VmAppearance3D", "VmAppearanceFlat", "DropDownAppearance",
                        Number(0)},
                       {"txtDateValue", "5/15/2024", "Jun 7, 2024", "DateValue", On(2024, 6, 7)},
                       {"txtDateFormat", "Short Date", "yyyy", "DateFormat", "yyyy"},
                       {"txtDateFormat", "yyyy", "", "DateFormat", ""},
                       {"chkEnabled", "true", "false", "Enabled", false},
                       {"txtDropDownWidth", "250", "320", "DropDownWidth", Number(320)},
                       {"txtDropDownHeight", "200", "240", "DropDownHeight", Number(240)}});
}

TEST(PropertyPageDialog, InvalidTextIsRedAndNoChange) {
    const auto box = NewBox();
    const QColor black = NewCalendar()->palette().color(QPalette::Text);
    const char* const edits[][3] = {{"txtDateMin", "12x", "1/1/2001"},
                                    {"txtDateMax", "", "12/31/2031"},
                                    {"txtDateValue", "no date", "3/4/2021"},
                                    {"txtDropDownWidth", "12a", "120"},
                                    {"txtDropDownHeight", "1.2.3", "130"}};
    for (const auto& [control, invalid, valid] : edits) {
        SCOPED_TRACE(control);
        Pages pages({AutomationOf(*box)});
        const auto& text = *pages.dialog.findChild<QLineEdit*>(control);
        Enter(pages.dialog, control, invalid);
        EXPECT_EQ(text.palette().color(QPalette::Text), QColor(255, 0, 0));
        EXPECT_FALSE(pages.IsChanged());
        Enter(pages.dialog, control, valid);
        EXPECT_EQ(text.palette().color(QPalette::Text), black);
        EXPECT_TRUE(pages.IsChanged());
    }
}

/// The other fields are written; the dialog stays open, and what was refused can be corrected.
TEST(PropertyPageDialog, RefusedFieldsAreToldAndKeepItOpen) {
    const struct {
        const char* control;
        const char* text;
        const char* message;
        bool staysChanged;  // refused by the control, not by the page
        const char* corrected;
    } kCases[] = {
        {"txtDateMin", "1/1/2500", "Invalid property value", true, "1/1/2020"},
        {"txtDateMax", "12x", "Type mismatch", true, "12/31/2030"},
        {"txtDropDownHeight", "1.2.3", "Property 'DropDownWidth' must a number.", false, "130"},
    };
    for (const auto& each : kCases) {
        SCOPED_TRACE(each.text);
        const auto box = NewBox();
        box->setDateMax(QDate(2040, 12, 31));
        Pages pages({AutomationOf(*box)});
        Enter(pages.dialog, "chkShowWeekend", "false");
        Enter(pages.dialog, "txtDateValue", "6/7/2024");
        Enter(pages.dialog, "txtDropDownWidth", "300");
        Enter(pages.dialog, each.control, each.text);
        EXPECT_EQ(pages.Accept(), each.message);
        EXPECT_TRUE(pages.dialog.isVisible());
        EXPECT_EQ(pages.IsChanged(), each.staysChanged);
        EXPECT_FALSE(box->showWeekend());
        EXPECT_EQ(box->dateValue().date(), QDate(2024, 6, 7));
        EXPECT_EQ(box->dropDownWidth(), 300);
        EXPECT_EQ(box->dateMax(), QDate(2040, 12, 31));
        EXPECT_EQ(box->dropDownHeight(), 200);
        Enter(pages.dialog, each.control, each.corrected);
        EXPECT_EQ(pages.Accept(), "");
        EXPECT_FALSE(pages.dialog.isVisible());
    }
}

TEST(PropertyPageDialog, NothingSelectedIsEmptyAndHarmless) {
    Pages pages({});
    for (const QWidget* const control : pages.dialog.findChildren<QLineEdit*>()) {
        EXPECT_EQ(Shown(pages.dialog, control->objectName().toLatin1()), "disabled");
    }
    EXPECT_FALSE(pages.IsChanged());
    EXPECT_EQ(pages.Accept(), "");
    EXPECT_FALSE(pages.dialog.isVisible());
}

TEST(PropertyPageDialog, CancelWritesNothingAndTheEndOfTheControlEndsIt) {
    auto calendar = NewCalendar();
    QPointer<PropertyPageDialog> dialog = PropertyPageDialog::Open(*calendar);
    Enter(*dialog, "chkShowWeekend", "false");
    Button(*dialog, "Cancel").click();
    EXPECT_TRUE(calendar->showWeekend());
    QApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    EXPECT_FALSE(dialog);

    QWidget window;
    auto* const box = NewBox().release();
    box->setParent(&window);
    QObject::connect(box, &VmCalDropDownWidget::propertyChanged, &window, [box] { delete box; });
    dialog = PropertyPageDialog::Open(*box);
    Enter(*dialog, "txtDateValue", "6/7/2024");
    Enter(*dialog, "txtDropDownWidth", "300");
    EXPECT_EQ(MessagesOf([&] { Button(*dialog, "Apply").click(); }), "");
    EXPECT_FALSE(dialog && dialog->isVisible());
    QWidget other;
    EXPECT_EQ(PropertyPageDialog::Open(other), nullptr);
}

}  // namespace
}  // namespace velmora
