#pragma once

#include <QtCore/QObject>
#include <QtCore/QPointer>

QT_BEGIN_NAMESPACE
class QWidget;
QT_END_NAMESPACE

class ZTGraphicsDocument;

namespace studio {

class OffsetDialog;
class PathActions;

/** The window's tools for paths: the actions, and the dialogs before some of them. */
class PathTools : public QObject
{
    Q_OBJECT

public:
    /** Both are borrowed and outlive this. */
    PathTools(ZTGraphicsDocument &document, QWidget &window);
    ~PathTools() override;

    PathActions &actions() const { return *m_actions; }

    /** Asks how to offset the selected outlines. */
    void showOffset();

    /** Asks what to clean of the selected outlines. */
    void showCleaning();

Q_SIGNALS:
    /** What was done or why nothing was; for people. */
    void told(const QString &words);

private:
    ZTGraphicsDocument &m_document;
    QWidget &m_window;
    PathActions *m_actions; ///< child
    QPointer<OffsetDialog> m_offsetDialog;
};

} // namespace studio
