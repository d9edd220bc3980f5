#pragma once

#include <QtCore/QString>

/** What a tree shows as the name of a row: its text in the application's language, if it has one.
 */
QString propertyDisplayName(const QString &propertyName);
