#include "VelmoraCalendar/PropertyPageDialog.h"
#include "VelmoraCalendar/VmCalDropDownWidget.h"
#include "dropdown/VmCalDropDown.h"
#include "proppages/PageDefinitions.h"
#include "tests/hosts/PageInput.h"
#include "tests/support/PageScript.h"

#include <QLabel>
#include <QPointer>
#include <QTabWidget>
#include <QTranslator>

#include <set>

namespace velmora {
namespace {

const QLocale kEnglish(QLocale::English, QLocale::UnitedStates);
const QDate kMay15(2024, 5, 15);
const QColor kInk(10, 20, 200);

/// The dialog of one object after the other.
class QtPages final : public test::PagePlayer {
public:
    QtPages() {
        QPalette colors;
        colors.setColor(QPalette::Text, kInk);
        m_dialog.setPalette(colors);
    }
    void Select(const std::string& object) override {
        if (object != "same") Make(object);
        m_dialog.SelectionChanged(std::span(&m_object, m_object ? 1 : 0));
        EXPECT_EQ(m_dialog.findChild<QTabWidget*>()->count(), object == "calendar" ? 2 : 3);
    }
    void Enter(const std::string& control, const std::string& input) override {
        velmora::Enter(m_dialog, control.c_str(), input.c_str());
    }
    std::string Shown(const std::string& name) override {
        const QWidget& control = *PageControlOf(m_dialog, name.c_str());
        const QColor ink = control.palette().color(QPalette::Active, QPalette::Text);
        const std::string red = ink == QColor(255, 0, 0) ? " red" : ink == kInk ? "" : " black";
        return velmora::Shown(m_dialog, name.c_str()) + red;
    }
    bool IsChanged() override { return Button(m_dialog, "Apply").isEnabled(); }
    std::string Apply() override { return MessagesOf(Button(m_dialog, "Apply")); }
    Variant Property(const std::string& name) override { return m_object->GetMember(name); }

private:
    void Make(const std::string& object) {
        m_object = object == "foreign" ? &foreign : nullptr;
        std::unique_ptr<QWidget> control;
        if (object == "calendar") control = std::make_unique<VmCalendarWidget>();
        if (object == "box") control = std::make_unique<VmCalDropDownWidget>();
        if (control) {
            control->setLocale(kEnglish);
            control->setProperty("dateValue", QDateTime(kMay15, QTime(12, 0)));
            m_object = AutomationOf(*control);
        }
        m_dialog.SelectionChanged({});
        m_control = std::move(control);
    }

    std::unique_ptr<QWidget> m_control;
    AutomationObject* m_object = nullptr;
    PropertyPageDialog m_dialog{kEnglish};
};

TEST(PropertyPageDialog, FollowsTheScript) {
    QtPages pages;
    test::PlayPages(pages);
}

/// The dialog shows the page with the first fault, whatever comes behind it.
TEST(PropertyPageDialog, OkClosesWhenNothingIsRefused) {
    VmCalDropDownWidget box;
    const QPointer<PropertyPageDialog> dialog = PropertyPageDialog::Open(box);
    const QPointer<QTabWidget> tabs = dialog->findChild<QTabWidget*>();
    auto& ok = Button(*dialog, "OK");
    Enter(*dialog, "txtDropDownHeight", "1");  // a number, so the page is changed
    Enter(*dialog, "txtDropDownHeight", "1.2.3");
    tabs->setCurrentIndex(2);
    EXPECT_EQ(MessagesOf(ok), "Property 'DropDownWidth' must a number.");
    EXPECT_TRUE(dialog->isVisible());
    EXPECT_EQ(tabs->currentIndex(), 1);
    Enter(*dialog, "txtDateMin", "1/1/4000");
    EXPECT_EQ(MessagesOf(ok), "Invalid property value|Property 'DropDownWidth' must a number.");
    EXPECT_EQ(tabs->currentIndex(), 0);
    Enter(*dialog, "txtDateMin", "1/1/2000");
    Enter(*dialog, "txtDropDownHeight", "130");
    EXPECT_EQ(MessagesOf(ok), "");
    EXPECT_FALSE(dialog->isVisible());
    EXPECT_EQ(box.dropDownHeight(), 130);
}

TEST(PropertyPageDialog, CancelWritesNothingAndTheEndOfTheControlEndsIt) {
    VmCalendarWidget calendar;
    QPointer<PropertyPageDialog> dialog = PropertyPageDialog::Open(calendar);
    Enter(*dialog, "chkShowWeekend", "false");
    Button(*dialog, "Cancel").click();
    EXPECT_TRUE(calendar.showWeekend());
    QApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    EXPECT_FALSE(dialog);

    QWidget window;
    auto* const box = new VmCalDropDownWidget(&window);
    QObject::connect(box, &VmCalDropDownWidget::propertyChanged, &window, [box] { delete box; });
    dialog = PropertyPageDialog::Open(*box);
    Enter(*dialog, "txtDateValue", "6/7/2024");
    Enter(*dialog, "txtDropDownWidth", "300");
    EXPECT_EQ(MessagesOf(Button(*dialog, "Apply")), "");
    EXPECT_FALSE(dialog && dialog->isVisible());
    EXPECT_EQ(PropertyPageDialog::Open(window), nullptr);
}

/// With an access key for every field in every language, and none twice on a page.
TEST(PropertyPageDialog, SpeaksTheLanguageOfTheApplication) {
    for (const char* const language : {"de", "fr", "ar"}) {
        QTranslator texts;
        ASSERT_TRUE(texts.load(QStringLiteral("velmora_calendar_%1").arg(QLatin1String(language)),
                               QStringLiteral(VELMORA_TRANSLATIONS)));
        for (const PageDefinition* const page : {&kGeneralPP, &kDropDownPP, &kDayPP, &kLookPP}) {
            std::set<QChar> keys;
            for (const FieldDefinition& field : page->fields) {
                const QString label =
                    texts.translate("VelmoraCalendar", std::string(field.label).c_str());
                const auto at = label.indexOf(QLatin1Char('&'));
                ASSERT_GE(at, 0) << language << ": " << field.label;
                EXPECT_TRUE(keys.insert(label.at(at + 1).toLower()).second) << label.toStdString();
            }
        }
        if (language != std::string_view("de")) continue;
        QApplication::installTranslator(&texts);
        VmCalDropDownWidget box;
        const std::unique_ptr<PropertyPageDialog> dialog(PropertyPageDialog::Open(box));
        QStringList shown;
        for (const QLabel* const label : dialog->findChildren<QLabel*>()) shown += label->text();
        EXPECT_TRUE(shown.contains(QStringLiteral("&Darstellung:")));
        EXPECT_EQ(Shown(*dialog, "cboAppearance"), "Räumlich");
        Enter(*dialog, "txtDateMin", "");
        Enter(*dialog, "chkShowWeekend", "false");
        EXPECT_EQ(MessagesOf(Button(*dialog, "Apply")),
                  "Die Eigenschaft „DateMin“ darf nicht leer sein");
    }
}

}  // namespace
}  // namespace velmora
