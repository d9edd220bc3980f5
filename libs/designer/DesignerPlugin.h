#pragma once

#include <designer/DesignerWidgets.h>

#include <QtCore/QObject>
#include <QtUiPlugin/QDesignerCustomWidgetCollectionInterface>

#include <memory>
#include <vector>

namespace designer {

/** One widget of the library, told to Qt Designer from its row of the table. */
class DesignerWidget : public QObject, public QDesignerCustomWidgetInterface
{
    Q_OBJECT
    Q_INTERFACES(QDesignerCustomWidgetInterface)

public:
    /** Borrows the row, which lives as long as the process. */
    explicit DesignerWidget(const WidgetEntry &entry);

    QString name() const override;
    QString group() const override;
    QString toolTip() const override;
    QString whatsThis() const override;
    QString includeFile() const override;
    QIcon icon() const override;
    bool isContainer() const override;
    QWidget *createWidget(QWidget *parent) override;
    QString domXml() const override;

private:
    const WidgetEntry &m_entry;
};

/** What Qt Designer and `QUiLoader` load: all widgets of the library. */
class DesignerPlugin : public QObject, public QDesignerCustomWidgetCollectionInterface
{
    Q_OBJECT
    Q_PLUGIN_METADATA(IID "org.qt-project.Qt.QDesignerCustomWidgetCollectionInterface")
    Q_INTERFACES(QDesignerCustomWidgetCollectionInterface)

public:
    explicit DesignerPlugin(QObject *parent = nullptr);

    /** Owner: the plugin. */
    QList<QDesignerCustomWidgetInterface *> customWidgets() const override;

private:
    std::vector<std::unique_ptr<DesignerWidget>> m_widgets;
};

} // namespace designer
