#pragma once

#include "VelmoraCalendar/QtExport.h"

#include <QDialog>
#include <QLocale>

#include <memory>
#include <span>
#include <vector>

class QDialogButtonBox;
class QTabWidget;

namespace velmora {

class AutomationObject;
class Dates;
class PropertyPageWidget;

/// The property pages of the controls, with OK, Cancel and Apply: appearance and dates, the
/// drop-down calendar, the days. They edit the first of the selected objects by the names of its
/// properties, so any object that offers such names will do; what it lacks is disabled.
///
/// A page that the object refused something of stays changed, and keeps OK from closing.
class VELMORA_QT_API PropertyPageDialog : public QDialog {
    Q_OBJECT

public:
    /// Dates are shown and read in that locale's form, which should be the control's.
    explicit PropertyPageDialog(const QLocale& locale, QWidget* parent = nullptr);
    ~PropertyPageDialog() override;

    /// Loads the pages that apply: all but the drop-down page for a `VmCalendar`, all for anything
    /// else. The objects live until the next call, or longer than the dialog.
    void SelectionChanged(std::span<AutomationObject* const> selected);

    /// Opens the pages of a calendar or date box widget beside it; they end with the widget. Null
    /// when it is neither.
    static PropertyPageDialog* Open(QWidget& control);

Q_SIGNALS:
    /// The pages that were changed have been written, as far as the object has not refused them.
    void applied();

public Q_SLOTS:
    void accept() override;

private:
    bool Apply();
    void Reload();
    void ShowChanged();

    std::unique_ptr<Dates> m_dates;
    std::vector<AutomationObject*> m_selected;
    std::unique_ptr<PropertyPageWidget> m_general;
    std::unique_ptr<PropertyPageWidget> m_dropDown;
    std::unique_ptr<PropertyPageWidget> m_days;
    QTabWidget* m_tabs;
    QDialogButtonBox* m_buttons;
};

/// What a calendar or date box widget shows, for access by name; null for any other widget.
VELMORA_QT_API AutomationObject* AutomationOf(QWidget& widget);

}  // namespace velmora
