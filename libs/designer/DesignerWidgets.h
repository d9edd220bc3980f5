#pragma once

#include <QtCore/QByteArray>
#include <QtCore/QString>

#include <functional>
#include <vector>

class QWidget;

namespace designer {

/** A widget of the library as Qt Designer shows it; a row of a table. */
struct WidgetEntry
{
    QByteArray className;
    QByteArray objectName; ///< of the first one on a form
    int width;             ///< pixels at which it comes onto a form
    int height;
    QString toolTip;   ///< one line
    QString whatsThis; ///< what the host does with it next
    std::function<QWidget *(QWidget *)> create;
};

/** The widgets in the order of the widget box. */
const std::vector<WidgetEntry> &widgetEntries();

} // namespace designer
