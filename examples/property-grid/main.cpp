// A small window with a property grid: a label beside it shows what the rows say.
// With "--grab FILE" it saves a picture of itself and ends.

#include <QtPropertyBrowser/QtTreePropertyBrowser.h>
#include <QtPropertyBrowser/QtVariantEditorFactory.h>
#include <QtPropertyBrowser/QtVariantPropertyManager.h>

#include <QtCore/QTimer>
#include <QtWidgets/QApplication>
#include <QtWidgets/QHBoxLayout>
#include <QtWidgets/QLabel>

namespace {

/** The rows, and the label that follows them. */
class Window : public QWidget
{
public:
    Window()
    {
        auto *layout = new QHBoxLayout(this);
        layout->addWidget(&browser, 2);
        layout->addWidget(&label, 1);
        label.setAlignment(Qt::AlignCenter);
        browser.setFactoryForManager(&manager, &factory);
        addTextRows();
        addLookRows();
        connect(&manager, &QtVariantPropertyManager::valueChanged, this, [this] { showOnLabel(); });
        showOnLabel();
    }

private:
    void addTextRows()
    {
        text = manager.addProperty(QMetaType::QString, QStringLiteral("text"));
        text->setValue(QStringLiteral("Hello"));
        turned = manager.addProperty(QMetaType::Bool, QStringLiteral("upper case"));
        QtVariantProperty *group =
            manager.addProperty(QtVariantPropertyManager::groupTypeId(), QStringLiteral("content"));
        group->addSubProperty(text);
        group->addSubProperty(turned);
        browser.addProperty(group);
    }

    void addLookRows()
    {
        margin = manager.addProperty(QMetaType::Double, QStringLiteral("margin"));
        margin->setAttribute(QStringLiteral("minimum"), 0.0);
        margin->setAttribute(QStringLiteral("singleStep"), 0.5);
        place =
            manager.addProperty(QtVariantPropertyManager::enumTypeId(), QStringLiteral("place"));
        place->setAttribute(
            QStringLiteral("enumNames"),
            QStringList{QStringLiteral("top"), QStringLiteral("middle"), QStringLiteral("bottom")});
        place->setValue(1);
        color = manager.addProperty(QMetaType::QColor, QStringLiteral("color"));
        font = manager.addProperty(QMetaType::QFont, QStringLiteral("font"));
        QFont large;
        large.setPixelSize(40);
        font->setValue(large);
        for (QtProperty *row : {margin, place, color, font})
            browser.addProperty(row);
    }

    void showOnLabel()
    {
        const QString shown = text->value().toString();
        label.setText(turned->value().toBool() ? shown.toUpper() : shown);
        label.setMargin(qRound(margin->value().toDouble()));
        const Qt::Alignment places[] = {Qt::AlignTop, Qt::AlignVCenter, Qt::AlignBottom};
        label.setAlignment(Qt::AlignHCenter | places[qBound(0, place->value().toInt(), 2)]);
        label.setFont(font->value().value<QFont>());
        QPalette palette = label.palette();
        palette.setColor(QPalette::WindowText, color->value().value<QColor>());
        label.setPalette(palette);
    }

    // Destroyed from the last to the first: the browser before what it shows.
    QtVariantPropertyManager manager;
    QtVariantEditorFactory factory;
    QtTreePropertyBrowser browser;
    QLabel label;
    QtVariantProperty *text = nullptr; // the rows belong to the manager
    QtVariantProperty *turned = nullptr;
    QtVariantProperty *margin = nullptr;
    QtVariantProperty *place = nullptr;
    QtVariantProperty *color = nullptr;
    QtVariantProperty *font = nullptr;
};

} // namespace

int main(int argc, char *argv[])
{
    QApplication application(argc, argv);
    Window window;
    window.resize(900, 800);
    window.show();
    const QStringList arguments = QApplication::arguments();
    if (arguments.value(1) == QLatin1String("--grab")) {
        QTimer::singleShot(0, &window, [&] {
            const bool saved = window.grab().save(arguments.value(2));
            QApplication::exit(saved ? 0 : 1);
        });
    }
    return QApplication::exec();
}
