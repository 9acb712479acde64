#pragma once

#include "proppages/PageControls.h"

#include <QCheckBox>
#include <QComboBox>
#include <QLineEdit>
#include <QWidget>

#include <functional>
#include <memory>

class QFormLayout;

namespace velmora {

class Dates;
class PropertyPage;

class QtPageList final : public QComboBox, public PageList {
public:
    using QComboBox::QComboBox;
    void Enabled(bool enabled) override { setEnabled(enabled); }
    void Items(std::span<const std::string_view> items) override;
    int ListIndex() const override { return currentIndex(); }
    void ListIndex(int index) override { setCurrentIndex(index); }
};

class QtPageCheckBox final : public QCheckBox, public PageCheckBox {
public:
    using QCheckBox::QCheckBox;
    void Enabled(bool enabled) override { setEnabled(enabled); }
    bool Checked() const override { return isChecked(); }
    void Checked(bool checked) override { setChecked(checked); }
};

class QtPageText final : public QLineEdit, public PageText {
public:
    using QLineEdit::QLineEdit;
    void Enabled(bool enabled) override { setEnabled(enabled); }
    std::string Text() const override { return text().toStdString(); }
    void Text(const std::string& text) override { setText(QString::fromStdString(text)); }
    /// `kValidText` is the colour of any other text box, black unless the palette says otherwise.
    void ForeColor(Rgb color) override;
};

/// A property page with its native controls, each under its published name as object name.
class PropertyPageWidget : public QWidget, protected PageSite {
    Q_OBJECT

public:
    PropertyPageWidget();

    virtual PropertyPage& Page() = 0;
    bool IsChanged() const noexcept { return m_changed; }
    /// Writes the page and shows what the object refuses in a message box. True when nothing was
    /// refused or found fault with.
    bool Apply();

signals:
    /// `IsChanged` may have another value.
    void changed();

protected:
    QtPageList& AddList(const char* name, const QString& label);
    QtPageCheckBox& AddCheckBox(const char* name, const QString& label);
    QtPageText& AddText(const char* name, const QString& label,
                        std::function<void(PageText&)> edited);
    /// To be called when the page is complete.
    void ConnectClicks();

private:
    void Changed(bool changed) override;
    void MessageBox(const std::string& text) override;
    void AddRow(const char* name, const QString& label, QWidget& control);

    QFormLayout* m_form;
    bool m_changed = false;
};

/// The pages; `dates` lives longer.
std::unique_ptr<PropertyPageWidget> MakeGeneralPage(const Dates& dates);
std::unique_ptr<PropertyPageWidget> MakeDropDownPage(const Dates& dates);
std::unique_ptr<PropertyPageWidget> MakeDayPage(const Dates& dates);

}  // namespace velmora
