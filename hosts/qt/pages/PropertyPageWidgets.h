#pragma once

#include "proppages/PageControls.h"

#include <QCheckBox>
#include <QComboBox>
#include <QLineEdit>
#include <QWidget>

#include <memory>

namespace velmora {

class Dates;
class PropertyPage;
struct PageDefinition;

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
class PropertyPageWidget final : public QWidget, private PageSite {
    Q_OBJECT

public:
    /// `dates` lives longer.
    PropertyPageWidget(const PageDefinition& definition, const Dates& dates);
    ~PropertyPageWidget() override;

    PropertyPage& Page() noexcept { return *m_page; }
    QString Title() const;
    bool IsChanged() const noexcept { return m_changed; }
    /// Writes the page and shows what the object refuses in a message box. True when nothing was
    /// refused or found fault with.
    bool Apply();

signals:
    /// `IsChanged` may have another value.
    void changed();

private:
    void Changed(bool changed) override;
    void MessageBox(const std::string& text) override;
    std::string Translated(std::string_view text) const override;

    const PageDefinition& m_definition;
    std::unique_ptr<PropertyPage> m_page;
    bool m_changed = false;
};

}  // namespace velmora
