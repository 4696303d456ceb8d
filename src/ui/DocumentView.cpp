#include "ui/DocumentView.h"

#include <QFile>
#include <QHash>
#include <QImageReader>
#include <QScrollBar>
#include <QTextBlock>
#include <QTextBrowser>
#include <QTextDocument>
#include <QTextFragment>

#include <algorithm>

namespace varnow::ui {

class DocumentView::Browser : public QTextBrowser
{
public:
    using QTextBrowser::QTextBrowser;

    /// The blocks that are headings, without the title.
    std::vector<QTextBlock> headings() const
    {
        std::vector<QTextBlock> found;
        for (QTextBlock block = document()->begin(); block.isValid(); block = block.next()) {
            if (block.blockFormat().headingLevel() > 1)
                found.push_back(block);
        }
        return found;
    }

    void fitPictures()
    {
        const int room = viewport()->width() - 2 * static_cast<int>(document()->documentMargin());
        for (QTextBlock block = document()->begin(); block.isValid(); block = block.next()) {
            for (auto part = block.begin(); !part.atEnd(); ++part) {
                if (part.fragment().charFormat().isImageFormat())
                    fit(part.fragment(), room);
            }
        }
    }

protected:
    void resizeEvent(QResizeEvent *event) override
    {
        QTextBrowser::resizeEvent(event);
        fitPictures();
    }

private:
    /// Of the picture itself, in pixels; its file is looked at once. 0 for one that cannot be read.
    int widthOf(const QString &name)
    {
        if (!m_widths.contains(name)) {
            const QUrl url = document()->baseUrl().resolved(QUrl(name));
            m_widths.insert(name, std::max(QImageReader(url.toLocalFile()).size().width(), 0));
        }
        return m_widths.value(name);
    }

    void fit(const QTextFragment &picture, int room)
    {
        QTextImageFormat format = picture.charFormat().toImageFormat();
        const int width = std::min(widthOf(format.name()), std::max(room, 1));
        if (width == static_cast<int>(format.width()))
            return;
        format.setWidth(width);
        QTextCursor cursor(document());
        cursor.setPosition(picture.position());
        cursor.setPosition(picture.position() + picture.length(), QTextCursor::KeepAnchor);
        cursor.setCharFormat(format);
    }

    QHash<QString, int> m_widths; // by name
};

DocumentView::DocumentView(Container &parent, const QString &name, const Rect &place)
    : Control(parent, name, new Browser(parent.surface()), place)
{
    browser()->setOpenExternalLinks(true);
    browser()->setTabChangesFocus(true);
}

DocumentView::Browser *DocumentView::browser() const
{
    return static_cast<Browser *>(widget());
}

bool DocumentView::showFile(const QString &path)
{
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly))
        return false;
    browser()->document()->setBaseUrl(QUrl::fromLocalFile(path));
    browser()->setMarkdown(QString::fromUtf8(file.readAll()));
    browser()->fitPictures();
    return true;
}

QStringList DocumentView::headings() const
{
    QStringList found;
    for (const QTextBlock &block : browser()->headings())
        found += QString(qsizetype{block.blockFormat().headingLevel() - 2} * 4, u' ') + block.text();
    return found;
}

void DocumentView::goTo(int heading)
{
    const QTextBlock block = browser()->headings()[static_cast<std::size_t>(heading)];
    QTextCursor cursor(block);
    browser()->setTextCursor(cursor);
    QScrollBar *bar = browser()->verticalScrollBar();
    bar->setValue(bar->value() + browser()->cursorRect(cursor).top());
}

} // namespace varnow::ui
