#include "dropdown/VmCalDropDown.h"
#include "hosts/qt/PropertyPageDialog.h"
#include "hosts/qt/VmCalDropDownWidget.h"
#include "tests/hosts/PageInput.h"
#include "tests/hosts/window/RealInput.h"

#include <gtest/gtest.h>

#include <QPointer>

namespace velmora {
namespace {

using Input = RealInput;

QRgb InkOf(const QWidget& text) {
    const QImage image = ScreenOf(text);
    QRgb darkest = qRgb(255, 255, 255);
    for (int y = 4; y < image.height() - 4; ++y) {
        for (int x = 4; x < image.width() - 4; ++x) {
            if (qBlue(image.pixel(x, y)) < qBlue(darkest)) darkest = image.pixel(x, y);
        }
    }
    return darkest;
}

TEST(PropertyPagesWindow, PagesAreTypedIntoAndApplied) {
    QApplication::setStyle("Fusion");
    QWidget window;
    auto* const box = new VmCalDropDownWidget(&window);
    box->setLocale(QLocale(QLocale::English, QLocale::UnitedStates));
    box->setDateValue(QDateTime(kMay15, QTime(12, 0)));
    window.resize(300, 60);
    window.move(40, 40);
    window.show();
    QPointer<PropertyPageDialog> dialog = PropertyPageDialog::Open(*box);
    ASSERT_TRUE(dialog);
    Input::Activate(*dialog);

    Input::Keys({"alt+d", "ctrl+a", "1", "2", "x", "alt+e"});  // away, so that no caret is drawn
    const auto& date = *dialog->findChild<QLineEdit*>("txtDateValue");
    EXPECT_EQ(date.text(), "12x");
    EXPECT_GT(qRed(InkOf(date)), 200) << "red ink";
    EXPECT_LT(qBlue(InkOf(date)), 60);
    EXPECT_FALSE(Button(*dialog, "Apply").isEnabled());

    Input::Keys({"alt+d", "ctrl+a", "6", "slash", "7", "slash", "2", "0", "2", "4", "alt+e"});
    EXPECT_LT(qRed(InkOf(date)), 60) << "black ink";
    EXPECT_TRUE(Button(*dialog, "Apply").isEnabled());
    Input::Keys({"alt+s", "Down"});
    EXPECT_EQ(box->dateValue().date(), kMay15) << "nothing is written before Apply";
    auto& apply = Button(*dialog, "Apply");
    Input::Click(apply.mapToGlobal(apply.rect().center()));
    EXPECT_EQ(box->dateValue(), QDateTime(QDate(2024, 6, 7), QTime(0, 0)));
    EXPECT_EQ(box->monthYearSelStyle(), VmCalDropDownWidget::MonthSelArrows);
    EXPECT_FALSE(apply.isEnabled());
    Input::Keys({"Escape"});
    EXPECT_FALSE(dialog);
}

}  // namespace
}  // namespace velmora
