#include "apps/gallery/GalleryWindow.h"

#include "VelmoraCalendar/PropertyPageDialog.h"
#include "VelmoraCalendar/VmCalDropDownWidget.h"
#include "apps/gallery/DateBoxPage.h"
#include "apps/gallery/Pages.h"

#include <QApplication>
#include <QDir>
#include <QHBoxLayout>
#include <QListWidget>
#include <QPainter>
#include <QPixmap>
#include <QPushButton>
#include <QStackedWidget>
#include <QVBoxLayout>

namespace velmora {

GalleryWindow::GalleryWindow(QDate date, QWidget* parent)
    : QMainWindow(parent), m_date(date), m_titles(new QListWidget), m_pages(new QStackedWidget) {
    for (const Page& page : Pages()) {
        m_titles->addItem(tr(page.title));
        auto* place = new QWidget;
        auto* layout = new QHBoxLayout(place);
        layout->setContentsMargins({});
        m_pages->addWidget(place);
    }
    m_titles->setFixedWidth(m_titles->sizeHintForColumn(0) + 24);
    auto* central = new QWidget;
    auto* layout = new QHBoxLayout(central);
    auto* properties = new QPushButton(tr("&Properties..."));
    properties->setFocusPolicy(Qt::NoFocus);  // it stays with the control
    auto* column = new QVBoxLayout;
    column->addWidget(m_titles);
    column->addWidget(properties);
    layout->addLayout(column);
    layout->addWidget(m_pages, 1);
    setCentralWidget(central);
    setWindowTitle(QStringLiteral("VelmoraCalendar"));
    resize(1200, 640);
    connect(properties, &QPushButton::clicked, this, &GalleryWindow::ShowProperties);
    connect(qApp, &QApplication::focusChanged, this,
            [this](QWidget*, QWidget* focus) { Follow(focus); });
    connect(m_titles, &QListWidget::currentRowChanged, this, &GalleryWindow::ShowPage);
    ShowPage(0);
}

/// Its children end after it, and the focus leaves them then.
GalleryWindow::~GalleryWindow() { disconnect(qApp, nullptr, this, nullptr); }

void GalleryWindow::ShowPage(int index) {
    QLayout& place = *m_pages->widget(index)->layout();
    if (place.isEmpty()) place.addWidget(Pages()[static_cast<std::size_t>(index)].make(m_date));
    m_pages->setCurrentIndex(index);
    m_titles->setCurrentRow(index);
}

/// A selector of a calendar counts as the calendar.
void GalleryWindow::Follow(QWidget* focus) {
    for (; focus; focus = focus->parentWidget()) {
        if (AutomationOf(*focus)) m_control = focus;
    }
}

void GalleryWindow::ShowProperties() {
    QWidget* const page = m_pages->currentWidget();
    QWidget* control = page->isAncestorOf(m_control) ? m_control.data() : nullptr;
    for (QWidget* const child : page->findChildren<QWidget*>()) {
        if (!control && AutomationOf(*child)) control = child;
    }
    if (control) PropertyPageDialog::Open(*control);
}

/// The window, with the calendar of a date box open where the page has one.
QPixmap GalleryWindow::Picture() {
    auto* const box =
        m_pages->currentWidget()->findChild<VmCalDropDownWidget*>(QLatin1String(kOpenedInPicture));
    if (box) box->setDropDownState(true);
    QApplication::processEvents();  // paints, which makes first events
    QApplication::processEvents();  // shows them
    QPixmap picture = grab();
    for (QWidget* const window : QApplication::topLevelWidgets()) {
        if (!box || window == this || !window->isVisible()) continue;
        QPainter(&picture).drawPixmap(mapFromGlobal(window->pos()), window->grab());
    }
    if (box) box->setDropDownState(false);
    return picture;
}

QString GalleryWindow::WritePictures(const QString& folder) {
    const QDir target(folder);
    if (!target.mkpath(QStringLiteral("."))) return folder;
    show();
    for (int i = 0; i < m_pages->count(); ++i) {
        ShowPage(i);
        const char* name = Pages()[static_cast<std::size_t>(i)].name;
        QString file = target.filePath(QString::fromLatin1(name) + QStringLiteral(".png"));
        if (!Picture().save(file)) return file;
    }
    return {};
}

}  // namespace velmora
