#include "apps/gallery/GalleryWindow.h"

#include "apps/gallery/Pages.h"

#include <QApplication>
#include <QDir>
#include <QHBoxLayout>
#include <QListWidget>
#include <QPixmap>
#include <QStackedWidget>

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
    layout->addWidget(m_titles);
    layout->addWidget(m_pages, 1);
    setCentralWidget(central);
    setWindowTitle(QStringLiteral("VelmoraCalendar"));
    resize(1200, 640);
    connect(m_titles, &QListWidget::currentRowChanged, this, &GalleryWindow::ShowPage);
    ShowPage(0);
}

void GalleryWindow::ShowPage(int index) {
    QLayout& place = *m_pages->widget(index)->layout();
    if (place.isEmpty()) place.addWidget(Pages()[static_cast<std::size_t>(index)].make(m_date));
    m_pages->setCurrentIndex(index);
    m_titles->setCurrentRow(index);
}

QString GalleryWindow::WritePictures(const QString& folder) {
    const QDir target(folder);
    if (!target.mkpath(QStringLiteral("."))) return folder;
    show();
    for (int i = 0; i < m_pages->count(); ++i) {
        ShowPage(i);
        QApplication::processEvents();  // paints, which makes first events
        QApplication::processEvents();  // shows them
        const char* name = Pages()[static_cast<std::size_t>(i)].name;
        const QString file = target.filePath(QString::fromLatin1(name) + QStringLiteral(".png"));
        if (!grab().save(file)) return file;
    }
    return {};
}

}  // namespace velmora
