#pragma once

#include <codekit/shape/CodeCheck.h>

#include <QtCore/QHash>
#include <QtCore/QMutex>
#include <QtCore/QObject>
#include <QtCore/QPointer>
#include <QtCore/QTimer>
#include <QtCore/QVector>

#include <atomic>
#include <memory>

class ZTGraphicsDocument;

namespace studio {

/**
 * Reads codes of a drawing back from their final marks. Their marks are gathered a few at a time in
 * the window's thread and read in others, so that the window stays alive.
 */
class CodeReader : public QObject
{
    Q_OBJECT

public:
    /** `document` is borrowed and outlives this. */
    explicit CodeReader(ZTGraphicsDocument &document, QObject *parent = nullptr);
    ~CodeReader() override;

    /** Begins with the codes that the drawing marks now; what was under way is given up. */
    void start(double beamMm);

    /** Gives up what is not read yet. Reports nothing more. */
    void stop();

    bool isRunning() const { return m_timer.isActive(); }
    int total() const { return m_codes.size(); }
    int done() const { return m_done; }

    /** A code by its number from 0, or null for one that was deleted. */
    codekit::CodeItem *code(int number) const { return m_codes.value(number); }

Q_SIGNALS:
    /** In the order of the codes. */
    void read(int number, const codekit::CodeReading &reading);
    void finished(); ///< all were read, not after `stop`

private:
    /** What the window's thread and those that read share. */
    struct Shared
    {
        std::atomic<bool> isGivenUp{false};
        QMutex mutex;
        QHash<int, codekit::CodeReading> readings; ///< guarded by `mutex`
    };

    void work();
    void gather();
    void report();

    ZTGraphicsDocument &m_document;
    QVector<QPointer<codekit::CodeItem>> m_codes;
    double m_beamMm = 0.0;
    int m_next = 0; ///< to be gathered
    int m_done = 0; ///< reported, or gone
    QTimer m_timer;
    std::shared_ptr<Shared> m_shared;
    QHash<int, codekit::CodeReading> m_early; ///< read before one in front of them
};

} // namespace studio
