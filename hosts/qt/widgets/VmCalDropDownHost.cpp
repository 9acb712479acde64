#include "hosts/qt/widgets/VmCalDropDownHost.h"

#include "hosts/qt/access/BoxAccess.h"
#include "platform/FlagScope.h"

#include <QApplication>
#include <QMouseEvent>
#include <QPointer>

namespace velmora {

void QtBoxWindowing::SetFocus() {
    const QPointer<QWidget> widget(&Widget());
    m_focusing = true;
    QtWindowing::SetFocus();
    if (!widget) return;
    m_focusing = false;
    const auto gotFocus = m_gotFocus;
    if (widget->hasFocus()) gotFocus();
}

VmCalDropDownWidget::Host::Host(VmCalDropDownWidget& widget)
    : VmDateWidget::Host(widget, m_windowing, &dropDown),
      m_widget(widget),
      m_windowing(widget, [this] { dropDown.OnGotFocus(); }),
      m_form(QtDropDownForm::Shared()),
      dropDown({m_drawing, m_windowing, m_dates, *this}, m_form->Form()) {
    Begin();
    dropDown.ComboFont(nullptr);
    dropDown.Events().CloseUp.Connect([this] {
        TellReaders();
        EmitSafely([to = &m_widget] {
            const QPointer<VmCalDropDownWidget> alive(to);
            emit to->dropDownStateChanged();
            if (alive) emit to->closeUp();
        });
    });
    dropDown.Events().DropDown.Connect([this, to = &m_widget](bool& cancel) {
        TellReaders();
        const QPointer<VmCalDropDownWidget> alive(to);
        VmDropDownArguments opening(cancel);
        emit to->dropDown(&opening);
        if (alive) emit to->dropDownStateChanged();
    });
}

QAccessibleInterface* VmCalDropDownWidget::Host::NewAccess() {
    return new BoxAccess(m_widget, dropDown, *m_form, m_lifetime);
}

void VmCalDropDownWidget::Host::Paint(QPainter& painter) {
    const QtDrawing::Surface surface(m_drawing, painter);
    dropDown.OnPaint(surface.Handle());
}

void VmCalDropDownWidget::Host::MouseDown(const QMouseEvent& event) {
    m_form->MousePressed();
    VmDateWidget::Host::MouseDown(event);
}

void VmCalDropDownWidget::Host::MouseUp(const QMouseEvent& event) {
    m_form->MouseReleased();
    VmDateWidget::Host::MouseUp(event);
}

void VmCalDropDownWidget::Host::WindowChanged() {
    const FlagScope closing(m_emitsLater);
    dropDown.OnWindowChanged();
}

void VmCalDropDownWidget::Host::ClassicLook(bool value) {
    VmDateWidget::Host::ClassicLook(value);
    if (m_form->Form().GetOwner() == &dropDown) m_form->FollowOwner();
}

void VmCalDropDownWidget::Host::LocaleChanged() {
    VmDateWidget::Host::LocaleChanged();
    LookChanged();
}

void VmCalDropDownWidget::Host::LookChanged() {
    const QPointer<VmDateWidget> widget(&m_widget);
    VmDateWidget::Host::LookChanged();
    if (widget) NotifyFollowers(dropDown, BoxSlots(), widget);
    if (widget && m_form->Form().GetOwner() == &dropDown) m_form->FollowOwner();
}

void VmCalDropDownWidget::Host::FocusGained() {
    if (!m_windowing.IsFocusing()) dropDown.OnGotFocus();
}

void VmCalDropDownWidget::Host::FocusLost() {
    if (QApplication::activeWindow() == m_form.get()) return;
    const FlagScope closing(m_emitsLater);
    dropDown.OnLostFocus();
}

}  // namespace velmora
