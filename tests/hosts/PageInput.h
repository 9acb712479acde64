#pragma once

#include <gtest/gtest.h>

#include <QApplication>
#include <QCheckBox>
#include <QComboBox>
#include <QDialogButtonBox>
#include <QLineEdit>
#include <QMessageBox>
#include <QPushButton>
#include <QTimer>

#include <stdexcept>
#include <string>

/// The controls of property pages by their names.
namespace velmora {

inline QWidget* PageControlOf(const QWidget& dialog, const char* name) {
    auto* const control = dialog.findChild<QWidget*>(QString::fromLatin1(name));
    if (!control) throw std::logic_error(name);
    return control;
}

/// What a list, check box or text box shows, with " disabled" behind it.
inline std::string Shown(const QWidget& dialog, const char* name) {
    const QWidget* const control = PageControlOf(dialog, name);
    std::string shown;
    if (const auto* const list = qobject_cast<const QComboBox*>(control)) {
        shown = list->currentText().toStdString();
    } else if (const auto* const check = qobject_cast<const QCheckBox*>(control)) {
        shown = check->isChecked() ? "true" : "false";
    } else {
        shown = dynamic_cast<const QLineEdit&>(*control).text().toStdString();
    }
    return shown + (control->isEnabled() ? "" : " disabled");
}

/// Chooses that item, sets the check box ("true" or "false") or the text, as the user does.
inline void Enter(const QWidget& dialog, const char* name, const char* input) {
    QWidget* const control = PageControlOf(dialog, name);
    if (auto* const list = qobject_cast<QComboBox*>(control)) {
        list->setCurrentIndex(list->findText(QString::fromUtf8(input)));
    } else if (auto* const check = qobject_cast<QCheckBox*>(control)) {
        if (check->isChecked() != (std::string_view(input) == "true")) check->click();
    } else {
        dynamic_cast<QLineEdit&>(*control).setText(QString::fromUtf8(input));
    }
}

/// "OK", "Cancel" or "Apply".
inline QPushButton& Button(const QWidget& dialog, const char* text) {
    for (auto* const button : dialog.findChild<QDialogButtonBox*>()->findChildren<QPushButton*>()) {
        if (button->text().remove(QLatin1Char('&')) == QLatin1String(text)) return *button;
    }
    throw std::logic_error(text);
}

/// The texts of the message boxes that a click brings; each is closed at once.
inline std::string MessagesOf(QPushButton& button) {
    QStringList texts;
    QTimer timer;
    QObject::connect(&timer, &QTimer::timeout, &timer, [&texts] {
        if (auto* const box = qobject_cast<QMessageBox*>(QApplication::activeModalWidget())) {
            EXPECT_EQ(box->textFormat(), Qt::PlainText) << "an object's text is no markup";
            texts += box->text();
            box->accept();
        }
    });
    timer.start(0);
    button.click();
    return texts.join(QLatin1Char('|')).toStdString();
}

}  // namespace velmora
