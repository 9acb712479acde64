#pragma once

#include <QApplication>
#include <QCheckBox>
#include <QComboBox>
#include <QDialogButtonBox>
#include <QLineEdit>
#include <QMessageBox>
#include <QPushButton>
#include <QTimer>

#include <functional>
#include <stdexcept>
#include <string>

/// The controls of property pages by their names.
namespace velmora {

inline QWidget* PageControlOf(const QWidget& dialog, const char* name) {
    return dialog.findChild<QWidget*>(QString::fromLatin1(name));
}

/// What a list, check box or text box shows; "disabled" for one that is that and empty.
inline std::string Shown(const QWidget& dialog, const char* name) {
    const QWidget* const control = PageControlOf(dialog, name);
    if (!control) return "no control";
    const auto* const list = qobject_cast<const QComboBox*>(control);
    const auto* const check = qobject_cast<const QCheckBox*>(control);
    const auto* const text = qobject_cast<const QLineEdit*>(control);
    if (!control->isEnabled()) {
        const bool isEmpty = list    ? list->currentIndex() < 0
                             : check ? !check->isChecked()
                                     : text->text().isEmpty();
        return isEmpty ? "disabled" : "disabled, not empty";
    }
    if (check) return check->isChecked() ? "true" : "false";
    return (list ? list->currentText() : text->text()).toStdString();
}

/// Chooses that item, sets the check box ("true" or "false") or the text, as the user does.
inline void Enter(const QWidget& dialog, const char* name, const char* input) {
    QWidget* const control = PageControlOf(dialog, name);
    if (auto* const list = qobject_cast<QComboBox*>(control)) {
        const int index = list->findText(QString::fromUtf8(input));
        if (index < 0) throw std::logic_error(std::string(name) + " has no " + input);
        list->setCurrentIndex(index);
    } else if (auto* const check = qobject_cast<QCheckBox*>(control)) {
        if (check->isChecked() != (std::string_view(input) == "true")) check->click();
    } else if (auto* const text = qobject_cast<QLineEdit*>(control)) {
        text->setText(QString::fromUtf8(input));
    } else {
        throw std::logic_error(name);
    }
}

/// "OK", "Cancel" or "Apply".
inline QPushButton& Button(const QWidget& dialog, const char* text) {
    for (auto* const button : dialog.findChild<QDialogButtonBox*>()->findChildren<QPushButton*>()) {
        if (button->text().remove(QLatin1Char('&')) == QLatin1String(text)) return *button;
    }
    throw std::logic_error(text);
}

/// The texts of the message boxes that an operation shows; each is closed at once.
inline std::string MessagesOf(const std::function<void()>& operation) {
    QStringList texts;
    QTimer timer;
    QObject::connect(&timer, &QTimer::timeout, &timer, [&texts] {
        if (auto* const box = qobject_cast<QMessageBox*>(QApplication::activeModalWidget())) {
            texts += box->text();
            box->accept();
        }
    });
    timer.start(0);
    operation();
    return texts.join(QLatin1Char('|')).toStdString();
}

}  // namespace velmora
