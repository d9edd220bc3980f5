#pragma once

#include "DrawingSnapshot.h"

#include "support/SingletonGuard.h"
#include "support/WarningGuard.h"

#include <studio/program/Messages.h>

#include <codekit/shape/CodeItem.h>
#include <hostkit/setup/Factories.h>
#include <jobkit/items/HatchedItems.h>

#include <QtCore/QCoreApplication>
#include <QtCore/QFile>
#include <QtCore/QSettings>
#include <QtCore/QTemporaryDir>
#include <QtWidgets/QUndoStack>

#include <memory>

/** Keeps messages instead of showing them. */
class RecordedMessages final : public studio::Messages
{
public:
    void failure(const studio::Message &message) override { failures << message; }
    void warning(const studio::Message &message) override { warnings << message; }

    QVector<studio::Message> failures;
    QVector<studio::Message> warnings;
};

/** What tests of the studio start from: fresh singletons, factories, settings of their own. */
class StudioTest
{
public:
    StudioTest()
    {
        QCoreApplication::setOrganizationName(QStringLiteral("studio-tests"));
        QCoreApplication::setApplicationName(QStringLiteral("studio-tests"));
        QSettings::setDefaultFormat(QSettings::IniFormat);
        QSettings::setPath(QSettings::IniFormat, QSettings::UserScope, folder.path());
        QSettings().clear();
        jobkit::registerHatchedFactories();
        hostkit::registerFactories();
        codekit::registerCodeFactories();
    }
    ~StudioTest() { QSettings().clear(); }

    QString path(const char *name) const { return folder.filePath(QString::fromLatin1(name)); }

    /** What the library said; it fails the test no more. */
    QStringList takeWarnings() { return warnings.take(); }

    /** A file in the test's folder. */
    QString write(const char *name, const QByteArray &content) const
    {
        QFile file(path(name));
        if (!file.open(QIODevice::WriteOnly) || file.write(content) != content.size())
            qFatal("a test file cannot be written");
        return file.fileName();
    }

    static QByteArray contentOf(const QString &path)
    {
        QFile file(path);
        return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
    }

private:
    testsupport::WarningGuard warnings;
    testsupport::SingletonGuard singletons;
    QTemporaryDir folder;
};

/** The same with a document of its own. */
class DocumentTest : public StudioTest
{
public:
    ~DocumentTest() { document.reset(); }

    /** A rectangle of 10 by 10 mm with its corner at a place on the scene. */
    studio::ShapeItem *addRect(double xPx, double yPx) { return add(ShapeType::Rect, xPx, yPx); }

    studio::ShapeItem *add(ShapeType type, double xPx, double yPx)
    {
        studio::ShapeItem *item = document->itemMag()->addShape(type, {0, 0, 10, 10});
        item->setPos(xPx, yPx);
        return item;
    }

    void select(const studio::ShapeItems &items) { studio::selectOnly(*document->scene(), items); }

    DrawingSnapshot snapshot() { return snapshotOf(*document); }

    std::unique_ptr<ZTGraphicsDocument> document = std::make_unique<ZTGraphicsDocument>();
};

/** Undoes, redoes and undoes a stack's last step and holds the drawing against both sides. */
#define COMPARE_UNDO_AND_REDO(document, before, after)                                             \
    do {                                                                                           \
        COMPARE_DRAWINGS(snapshotOf(document), after);                                             \
        (document).undoStack()->undo();                                                            \
        COMPARE_DRAWINGS(snapshotOf(document), before);                                            \
        (document).undoStack()->redo();                                                            \
        COMPARE_DRAWINGS(snapshotOf(document), after);                                             \
        (document).undoStack()->undo();                                                            \
        COMPARE_DRAWINGS(snapshotOf(document), before);                                            \
    } while (false)
