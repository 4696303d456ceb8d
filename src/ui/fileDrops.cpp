#include "ui/fileDrops.h"

#include <QDropEvent>
#include <QMimeData>
#include <QUrl>
#include <QWidget>

namespace varnow::ui {

namespace {

QStringList pathsOf(const QMimeData &data)
{
    QStringList paths;
    for (const QUrl &url : data.urls()) {
        if (url.isLocalFile())
            paths += url.toLocalFile();
    }
    return paths;
}

class FileDrops : public QObject
{
public:
    FileDrops(QWidget &window, const std::function<void(const QStringList &)> &onDropped)
        : QObject(&window), m_onDropped(onDropped)
    {
        window.setAcceptDrops(true);
        window.installEventFilter(this);
    }

    bool eventFilter(QObject *, QEvent *event) override
    {
        if (event->type() != QEvent::DragEnter && event->type() != QEvent::Drop)
            return false;
        auto *drop = static_cast<QDropEvent *>(event); // entering is one, too
        const QStringList paths = pathsOf(*drop->mimeData());
        drop->setAccepted(!paths.isEmpty());
        if (!paths.isEmpty())
            drop->acceptProposedAction();
        if (event->type() == QEvent::Drop)
            QMetaObject::invokeMethod(
                this, [this, paths] { m_onDropped(paths); }, Qt::QueuedConnection);
        return true;
    }

private:
    std::function<void(const QStringList &)> m_onDropped;
};

} // namespace

void acceptFileDrops(QWidget &window, const std::function<void(const QStringList &paths)> &onDropped)
{
    new FileDrops(window, onDropped); // the window's own
}

} // namespace varnow::ui
