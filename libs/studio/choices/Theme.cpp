#include <studio/choices/Theme.h>

#include <QtGui/QIcon>
#include <QtGui/QPainter>
#include <QtGui/QPainterPath>
#include <QtGui/QPalette>
#include <QtWidgets/QApplication>
#include <QtWidgets/QProxyStyle>
#include <QtWidgets/QStyle>
#include <QtWidgets/QStyleFactory>
#include <QtWidgets/QStyleOption>
#include <QtWidgets/QToolBar>
#include <QtWidgets/QToolButton>
#include <QtWidgets/QToolTip>

namespace studio {

namespace {

/** How the program came up. */
struct First
{
    QString style = QApplication::style()->objectName();
    QPalette palette = QApplication::palette();
    QPalette toolTips = QToolTip::palette();
};

const First &first()
{
    static const First kept;
    return kept;
}

Theme g_theme = Theme::System;

/** What the colours of a theme are mixed from. */
struct Inks
{
    QColor window;
    QColor base;
    QColor raised;
    QColor text;
    QColor pale;
    QColor accent;
    QColor link;
};

const Inks kLight = {QColor(0xf0, 0xf1, 0xf2), QColor(0xff, 0xff, 0xff), QColor(0xf7, 0xf8, 0xf9),
                     QColor(0x1c, 0x20, 0x24), QColor(0x8a, 0x90, 0x96), QColor(0x1f, 0x6f, 0xc4),
                     QColor(0x0b, 0x57, 0xa4)};
const Inks kDark = {QColor(0x2b, 0x2e, 0x32), QColor(0x1f, 0x22, 0x25), QColor(0x38, 0x3c, 0x41),
                    QColor(0xe6, 0xe8, 0xea), QColor(0x83, 0x8a, 0x91), QColor(0x3d, 0x8b, 0xe0),
                    QColor(0x7c, 0xb8, 0xf5)};

QPalette paletteOf(const Inks &inks)
{
    QPalette palette(inks.raised, inks.window);
    const auto set = [&palette](QPalette::ColorRole role, const QColor &colour) {
        palette.setColor(role, colour);
    };
    set(QPalette::Window, inks.window);
    set(QPalette::WindowText, inks.text);
    set(QPalette::Base, inks.base);
    set(QPalette::AlternateBase, inks.raised);
    set(QPalette::Text, inks.text);
    set(QPalette::Button, inks.raised);
    set(QPalette::ButtonText, inks.text);
    set(QPalette::BrightText, Qt::white);
    set(QPalette::ToolTipBase, inks.raised);
    set(QPalette::ToolTipText, inks.text);
    set(QPalette::PlaceholderText, inks.pale);
    set(QPalette::Highlight, inks.accent);
    set(QPalette::HighlightedText, Qt::white);
    set(QPalette::Link, inks.link);
    set(QPalette::LinkVisited, inks.link);
    for (const auto role : {QPalette::WindowText, QPalette::Text, QPalette::ButtonText})
        palette.setColor(QPalette::Disabled, role, inks.pale);
    palette.setColor(QPalette::Disabled, QPalette::Highlight, inks.pale);
    return palette;
}

constexpr double kGlyphSide = 10.0; ///< of what glyphs are drawn in

/** What Fusion has as dark pictures, drawn in the colour of text. */
QPainterPath glyphOf(QStyle::StandardPixmap which)
{
    QPainterPath path;
    const auto line = [&path](const QPointF &from, const QPointF &through, const QPointF &to) {
        path.moveTo(from);
        path.lineTo(through);
        path.lineTo(to);
    };
    switch (which) {
    case QStyle::SP_ToolBarHorizontalExtensionButton:
        line({2, 2}, {5, 5}, {2, 8});
        line({5, 2}, {8, 5}, {5, 8});
        break;
    case QStyle::SP_ToolBarVerticalExtensionButton:
        line({2, 2}, {5, 5}, {8, 2});
        line({2, 5}, {5, 8}, {8, 5});
        break;
    case QStyle::SP_TitleBarCloseButton:
    case QStyle::SP_DockWidgetCloseButton:
        line({2, 2}, {5, 5}, {8, 8});
        line({8, 2}, {5, 5}, {2, 8});
        break;
    case QStyle::SP_TitleBarNormalButton:
        path.addRect(1.5, 3.5, 5, 5);
        line({3.5, 3.5}, {3.5, 1.5}, {8.5, 1.5});
        line({8.5, 1.5}, {8.5, 6.5}, {6.5, 6.5});
        break;
    default:
        break;
    }
    return path;
}

/** Fusion, whose small pictures follow the theme. */
class ThemeStyle : public QProxyStyle
{
public:
    ThemeStyle() : QProxyStyle(QStyleFactory::create(QStringLiteral("Fusion"))) {}

    QIcon standardIcon(StandardPixmap which, const QStyleOption *option,
                       const QWidget *widget) const override
    {
        const QPainterPath glyph = glyphOf(which);
        if (glyph.isEmpty())
            return QProxyStyle::standardIcon(which, option, widget);
        QIcon icon;
        for (const int side : {10, 16, 20, 32, 48})
            icon.addPixmap(pictureOf(glyph, side));
        return icon;
    }

    // Fusion frames boxes in what it mixes from the window's colour, which nobody sees on dark.
    void drawPrimitive(PrimitiveElement element, const QStyleOption *option, QPainter *painter,
                       const QWidget *widget) const override
    {
        QProxyStyle::drawPrimitive(element, option, painter, widget);
        const bool isBox =
            element == PE_IndicatorCheckBox || element == PE_IndicatorItemViewItemCheck;
        if (g_theme != Theme::Dark || !(isBox || element == PE_IndicatorRadioButton))
            return;
        painter->save();
        painter->setRenderHint(QPainter::Antialiasing, !isBox);
        painter->setPen(QPen(kDark.pale, 1.0));
        painter->setBrush(Qt::NoBrush);
        const QRectF frame = QRectF(option->rect).adjusted(0.5, 0.5, -0.5, -0.5);
        isBox ? painter->drawRect(frame) : painter->drawEllipse(frame);
        painter->restore();
    }

private:
    static QPixmap pictureOf(const QPainterPath &glyph, int side)
    {
        QPixmap picture(side, side);
        picture.fill(Qt::transparent);
        QPainter painter(&picture);
        painter.setRenderHint(QPainter::Antialiasing);
        painter.scale(side / kGlyphSide, side / kGlyphSide);
        painter.strokePath(glyph, QPen(QApplication::palette().color(QPalette::WindowText), 1.2));
        return picture;
    }
};

/** Buttons that unfold a toolbar take their picture once, when they are made. */
void renewToolBarPictures()
{
    for (QWidget *widget : QApplication::allWidgets()) {
        const auto *bar = qobject_cast<const QToolBar *>(widget->parentWidget());
        auto *button = qobject_cast<QToolButton *>(widget);
        if (bar == nullptr || button == nullptr ||
            button->objectName() != QLatin1String("qt_toolbar_ext_button"))
            continue;
        const bool isLevel = bar->orientation() == Qt::Horizontal;
        button->setIcon(QApplication::style()->standardIcon(
            isLevel ? QStyle::SP_ToolBarHorizontalExtensionButton
                    : QStyle::SP_ToolBarVerticalExtensionButton));
    }
}

void give(QStyle *style, const QPalette &palette, const QPalette &toolTips)
{
    QApplication::setPalette(palette);
    QApplication::setStyle(style); // takes it over, and may change the palette
    QApplication::setPalette(palette);
    QToolTip::setPalette(toolTips);
    renewToolBarPictures();
}

} // namespace

void applyTheme(Theme theme)
{
    const First &start = first();
    if (theme == g_theme)
        return;
    g_theme = theme;
    if (theme == Theme::System) {
        give(QStyleFactory::create(start.style), start.palette, start.toolTips);
        return;
    }
    const QPalette palette = paletteOf(theme == Theme::Dark ? kDark : kLight);
    give(new ThemeStyle, palette, palette);
}

Theme appliedTheme() { return g_theme; }

} // namespace studio
