#include "hosts/qt/windows/QtChildren.h"

#include "VelmoraCalendar/QtConversions.h"
#include "VelmoraCalendar/VmDateWidget.h"
#include "hosts/qt/drawing/QtDrawing.h"
#include "hosts/qt/values/QtTranslation.h"
#include "hosts/qt/windows/QtSelectors.h"

#include <QFontMetrics>
#include <QPointer>
#include <QSignalBlocker>

namespace velmora {
namespace {

/// A child control of one kind. The widget may be gone already: every operation copes with that.
template <class Interface, class Widget>
// NOLINTNEXTLINE(cppcoreguidelines-virtual-class-destructor): it is, by that of the interface
class QtChild : public Interface {
public:
    QtChild(Widget* widget, const QString& accessibleName) : m_widget(widget) {
        widget->hide();
        widget->setAccessibleName(accessibleName);
        // What happens on a child is no mouse event of the calendar.
        widget->setAttribute(Qt::WA_NoMousePropagation);
    }
    QtChild(const QtChild&) = delete;
    QtChild& operator=(const QtChild&) = delete;
    ~QtChild() override { delete m_widget.data(); }

    WindowHandle Handle() const override { return QtDrawing::HandleOf(m_widget.data()); }

    Size Extent() const override {
        if (!m_widget) return {};
        const QSize size = NaturalSize(*m_widget);
        return {size.width(), size.height()};
    }

    void Move(const Rect& rect) override {
        if (!m_widget) return;
        m_widget->setGeometry(rect.left, rect.top, rect.Width(), rect.Height());
    }

    void Visible(bool visible) override {
        if (m_widget && m_widget->isHidden() == visible) m_widget->setVisible(visible);
    }

protected:
    virtual QSize NaturalSize(const Widget& widget) const { return widget.sizeHint(); }

    const QPointer<Widget> m_widget;
};

class MonthList final : public QtChild<ComboBox, MonthListBox> {
public:
    using QtChild::QtChild;

    void Items(std::span<const std::string> items) override {
        if (!m_widget) return;
        const QSignalBlocker silent(m_widget);
        m_widget->clear();
        for (const std::string& item : items) m_widget->addItem(ToQString(item));
        m_widget->setMaxVisibleItems(static_cast<int>(items.size()));
    }

    int ListIndex() const override { return m_widget ? m_widget->currentIndex() : -1; }

    void ListIndex(int index) override {
        if (!m_widget) return;
        const QSignalBlocker silent(m_widget);
        m_widget->setCurrentIndex(index);
    }

    bool DroppedDown() const override { return m_widget && m_widget->IsOpen(); }
};

QSize YearTextSize(const QLineEdit& box) {
    constexpr int kHintLetters = 17;  // a line edit's own width holds as many x
    const QFontMetrics metrics(box.font());
    const QSize hint = box.sizeHint();
    const int frame = hint.width() - kHintLetters * metrics.horizontalAdvance(u'x');
    return {frame + metrics.horizontalAdvance(QStringLiteral("00000")), hint.height()};
}

class YearText final : public QtChild<TextBox, YearBox> {
public:
    using QtChild::QtChild;

    std::string Text() const override { return m_widget ? m_widget->text().toStdString() : ""; }

    void Text(const std::string& text) override {
        if (!m_widget) return;
        const QSignalBlocker silent(m_widget);
        if (m_widget->text().toStdString() != text) m_widget->setText(ToQString(text));
        m_widget->setModified(false);
    }

protected:
    QSize NaturalSize(const YearBox& widget) const override { return YearTextSize(widget); }
};

class QtScroll : public QtChild<ScrollBar, SelectorBar> {
public:
    using QtChild::QtChild;

    void Position(int minimum, int maximum, int value) override {
        if (!m_widget) return;
        const QSignalBlocker silent(m_widget);
        m_widget->setRange(minimum, maximum);
        m_widget->setValue(value);
    }
};

class YearSpinner final : public QtScroll {
public:
    YearSpinner(SelectorBar* widget, QWidget& parent)
        : QtScroll(widget, Translated("Year")), m_parent(parent) {}

protected:
    QSize NaturalSize(const SelectorBar&) const override {
        constexpr int kWidth = 17;
        const auto* const year = m_parent.findChild<QLineEdit*>({}, Qt::FindDirectChildrenOnly);
        return {kWidth, year ? year->sizeHint().height() : 2 * kWidth};
    }

private:
    QWidget& m_parent;
};

}  // namespace

std::unique_ptr<ComboBox> MakeMonthList(QWidget& parent, SelectorInput& input) {
    return std::make_unique<MonthList>(new MonthListBox(parent, input), Translated("Month"));
}

std::unique_ptr<TextBox> MakeYearText(QWidget& parent, SelectorInput& input) {
    return std::make_unique<YearText>(new YearBox(parent, input), Translated("Year"));
}

std::unique_ptr<ScrollBar> MakeYearSpinner(QWidget& parent, SelectorInput& input) {
    return std::make_unique<YearSpinner>(new YearBar(parent, input), parent);
}

std::unique_ptr<ScrollBar> MakeDateScroll(QWidget& parent, SelectorInput& input) {
    auto* const bar = new SelectorBar(Qt::Horizontal, parent, input, &VmCalendar::OnDateScroll);
    bar->setPageStep(12);  // months
    bar->setFocusPolicy(Qt::TabFocus);
    return std::make_unique<QtScroll>(bar, Translated("Month"));
}

}  // namespace velmora
