#pragma once

#include <QDate>
#include <QMainWindow>
#include <QPointer>

class QListWidget;
class QStackedWidget;

namespace velmora {

/// The list of pages, and the chosen one beside it. A page is made when it is first shown.
class GalleryWindow : public QMainWindow {
    Q_OBJECT

public:
    explicit GalleryWindow(QDate date, QWidget* parent = nullptr);
    ~GalleryWindow() override;

    /// 0..`Pages().size()` - 1.
    void ShowPage(int index);

    /// Writes the window with every page as `folder`/`name`.png; the folder is made when it is
    /// missing. Returns the file that could not be written, empty when all were.
    QString WritePictures(const QString& folder);

    /// Opens the property pages of the control of the shown page that had the focus last, else of
    /// its first one.
    void ShowProperties();

private:
    void Follow(QWidget* focus);
    QPixmap Picture();

    QDate m_date;
    QListWidget* m_titles;
    QStackedWidget* m_pages;
    QPointer<QWidget> m_control;  // had the focus last
};

}  // namespace velmora
