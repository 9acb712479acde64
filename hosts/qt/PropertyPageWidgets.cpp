#include "hosts/qt/PropertyPageWidgets.h"

#include "hosts/qt/QtConversions.h"
#include "proppages/PropertyPages.h"

#include <QApplication>
#include <QFormLayout>
#include <QMessageBox>

#include <exception>
#include <utility>

namespace velmora {
namespace {

class GeneralPage final : public PropertyPageWidget {
public:
    explicit GeneralPage(const Dates& dates)
        : m_page({AddList("cboAppearance", tr("&Appearance:")),
                  AddList("cboWeekDayDisplay", tr("&Week day captions:")),
                  AddCheckBox("chkShowWeekend", tr("Show week&end")),
                  AddList("cboWeekDayCaptionAlignment", tr("Week day a&lignment:")),
                  AddList("cboWeekDayAppearance", tr("Wee&k day appearance:")),
                  AddList("cboMonthDisplay", tr("&Month caption:")),
                  AddList("cboMonthAppearance", tr("M&onth appearance:")),
                  AddList("cboMonthYearSelStyle", tr("Month and year &selectors:")),
                  AddDate("txtDateMin", tr("Ea&rliest date:")),
                  AddDate("txtDateMax", tr("La&test date:")), AddDate("txtDateValue", tr("&Date:")),
                  AddText("txtDateFormat", tr("Date &format:"),
                          [this](PageText&) { m_page.OnFormatText(); })},
                 *this, dates) {
        ConnectClicks();
    }
    PropertyPage& Page() override { return m_page; }

private:
    QtPageText& AddDate(const char* name, const QString& label) {
        return AddText(name, label, [this](PageText& text) { m_page.OnDateText(text); });
    }

    GeneralPP m_page;
};

class DropDownPage final : public PropertyPageWidget {
public:
    explicit DropDownPage(const Dates& dates)
        : m_page({AddCheckBox("chkEnabled", tr("&Enabled")),
                  AddText("txtDropDownWidth", tr("Drop-down &width:"),
                          [this](PageText&) { m_page.OnWidthText(); }),
                  AddText("txtDropDownHeight", tr("Drop-down &height:"),
                          [this](PageText&) { m_page.OnHeightText(); })},
                 *this, dates) {
        ConnectClicks();
    }
    PropertyPage& Page() override { return m_page; }

private:
    DropDownPP m_page;
};

class DayPage final : public PropertyPageWidget {
public:
    explicit DayPage(const Dates& dates)
        : m_page({AddList("cboFirstDayOfWeek", tr("&First day of the week:")),
                  AddList("cboDayAppearance", tr("&Appearance:")),
                  AddList("cboDayNumberAlignment", tr("&Number alignment:")),
                  AddList("cboDayCaptionAlignment", tr("&Caption alignment:")),
                  AddList("cboDayPicAlignment", tr("&Picture alignment:"))},
                 *this, dates) {
        ConnectClicks();
    }
    PropertyPage& Page() override { return m_page; }

private:
    DayPP m_page;
};

}  // namespace

void QtPageList::Items(std::span<const std::string_view> items) {
    clear();
    for (const std::string_view item : items) addItem(ToQString(item));
}

void QtPageText::ForeColor(Rgb color) {
    QPalette colors;
    if (color != kValidText) colors.setColor(QPalette::Text, ToQColor(color));
    setPalette(colors);
}

PropertyPageWidget::PropertyPageWidget() : m_form(new QFormLayout(this)) {
    m_form->setFieldGrowthPolicy(QFormLayout::AllNonFixedFieldsGrow);
}

void PropertyPageWidget::AddRow(const char* name, const QString& label, QWidget& control) {
    control.setObjectName(QLatin1String(name));
    m_form->addRow(label, &control);
}

QtPageList& PropertyPageWidget::AddList(const char* name, const QString& label) {
    auto* const list = new QtPageList(this);
    AddRow(name, label, *list);
    return *list;
}

QtPageCheckBox& PropertyPageWidget::AddCheckBox(const char* name, const QString& label) {
    auto* const box = new QtPageCheckBox(label, this);
    AddRow(name, {}, *box);
    return *box;
}

QtPageText& PropertyPageWidget::AddText(const char* name, const QString& label,
                                        std::function<void(PageText&)> edited) {
    auto* const text = new QtPageText(this);
    AddRow(name, label, *text);
    connect(text, &QLineEdit::textChanged, this,
            [text, edited = std::move(edited)] { edited(*text); });
    return *text;
}

void PropertyPageWidget::ConnectClicks() {
    for (const QComboBox* const list : findChildren<QComboBox*>()) {
        connect(list, &QComboBox::currentIndexChanged, this, [this] { Page().OnClick(); });
    }
    for (const QCheckBox* const box : findChildren<QCheckBox*>()) {
        connect(box, &QCheckBox::toggled, this, [this] { Page().OnClick(); });
    }
}

bool PropertyPageWidget::Apply() {
    try {
        return Page().ApplyChanges();
    } catch (const std::exception& error) {
        MessageBox(error.what());
        return false;
    }
}

void PropertyPageWidget::Changed(bool changed) {
    m_changed = changed;
    emit this->changed();
}

void PropertyPageWidget::MessageBox(const std::string& text) {
    QMessageBox box(QMessageBox::NoIcon, QApplication::applicationDisplayName(), ToQString(text),
                    QMessageBox::Ok, this);
    box.setTextFormat(Qt::PlainText);
    box.exec();
}

std::unique_ptr<PropertyPageWidget> MakeGeneralPage(const Dates& dates) {
    return std::make_unique<GeneralPage>(dates);
}

std::unique_ptr<PropertyPageWidget> MakeDropDownPage(const Dates& dates) {
    return std::make_unique<DropDownPage>(dates);
}

std::unique_ptr<PropertyPageWidget> MakeDayPage(const Dates& dates) {
    return std::make_unique<DayPage>(dates);
}

}  // namespace velmora
