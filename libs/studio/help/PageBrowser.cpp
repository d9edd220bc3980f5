#include <studio/help/PageBrowser.h>

#include <QtGui/QImage>
#include <QtGui/QTextDocument>

namespace studio {

namespace {

constexpr int kMostWidth = 600; // beside the contents, in a window that was just opened

} // namespace

PageBrowser::PageBrowser(QWidget *parent) : QTextBrowser(parent) {}

QVariant PageBrowser::loadResource(int type, const QUrl &name)
{
    // Style sheets of pages are made for browsers; here the program's own colours hold.
    if (type == QTextDocument::StyleSheetResource)
        return {};
    const QByteArray content = contentOf(source().resolved(name));
    if (type != QTextDocument::ImageResource)
        return content;
    const QImage image = QImage::fromData(content);
    return image.width() <= kMostWidth ? image
                                       : image.scaledToWidth(kMostWidth, Qt::SmoothTransformation);
}

} // namespace studio
