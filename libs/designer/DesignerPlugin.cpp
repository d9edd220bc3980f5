#include <designer/DesignerPlugin.h>

#include <QtGui/QIcon>

namespace designer {

DesignerWidget::DesignerWidget(const WidgetEntry &entry) : m_entry(entry) {}

QString DesignerWidget::name() const { return QString::fromLatin1(m_entry.className); }

QString DesignerWidget::group() const { return QStringLiteral("Laser Marking"); }

QString DesignerWidget::toolTip() const { return m_entry.toolTip; }

QString DesignerWidget::whatsThis() const { return m_entry.whatsThis; }

QString DesignerWidget::includeFile() const
{
    return QStringLiteral("<ZTDrawEngineLib/ZTDrawEngineLib.h>");
}

QIcon DesignerWidget::icon() const
{
    return QIcon(QStringLiteral(":/designer/%1.svg").arg(QString::fromLatin1(m_entry.objectName)));
}

bool DesignerWidget::isContainer() const { return false; }

QWidget *DesignerWidget::createWidget(QWidget *parent) { return m_entry.create(parent); }

QString DesignerWidget::domXml() const
{
    return QStringLiteral("<ui language=\"c++\"><widget class=\"%1\" name=\"%2\">"
                          "<property name=\"geometry\"><rect><x>0</x><y>0</y>"
                          "<width>%3</width><height>%4</height></rect></property>"
                          "</widget></ui>")
        .arg(name(), QString::fromLatin1(m_entry.objectName))
        .arg(m_entry.width)
        .arg(m_entry.height);
}

DesignerPlugin::DesignerPlugin(QObject *parent) : QObject(parent)
{
    for (const WidgetEntry &entry : widgetEntries())
        m_widgets.push_back(std::make_unique<DesignerWidget>(entry));
}

QList<QDesignerCustomWidgetInterface *> DesignerPlugin::customWidgets() const
{
    QList<QDesignerCustomWidgetInterface *> widgets;
    for (const std::unique_ptr<DesignerWidget> &widget : m_widgets)
        widgets << widget.get();
    return widgets;
}

} // namespace designer
