#pragma once

#include <vectorkit/VectorReader.h>
#include <vectorkit/hpgl/HpglFrame_p.h>
#include <vectorkit/hpgl/HpglLettering_p.h>
#include <vectorkit/hpgl/HpglPlotter_p.h>
#include <vectorkit/hpgl/HpglScanner_p.h>

namespace vectorkit {

/** Carries out the commands of a plotter file. */
class HpglInterpreter
{
public:
    HpglInterpreter(const QByteArray &bytes, const ReadOptions &readOptions, VectorDrawing *target);

    /** All of the file; false with the reason. */
    bool run(ReadFailure *failure);

private:
    // Each carries out one of its commands, and says whether it is one of them.
    bool carryOutMove(int code);
    bool carryOutArc(int code);
    bool carryOutArea(int code);
    bool carryOutFrame(int code);
    bool carryOutLettering(int code);
    bool carryOutPen(int code);
    bool carryOutPage(int code);
    bool passOver(int code);

    void moves();
    void arc(bool isRelative);
    void arcThrough(bool isRelative);
    void curves(bool isRelative);
    void packed();
    void wedge(bool isFilled);
    void window();
    QByteArray readLabel();
    void write(const QByteArray &text);
    void symbolMode();
    void movePenByLetters();
    void terminator();
    void penColor();
    void reset();

    /** The command's numbers; what is wrong with them is noted. Fewer than `least` is damage. */
    bool take(std::size_t least);
    const std::vector<double> &numbers() const { return m_scanner.numbers(); }
    double number(std::size_t index, double otherwise) const;
    QPointF point(std::size_t index, bool isRelative) const;
    void require(bool isSensible);
    void damaged(const QString &what, qint64 place, qint64 count = 1);
    void note(VectorNote::Kind kind, const QString &what);
    QString commandName() const;
    double chord(std::size_t index) const;
    bool checkLimits(ReadFailure *failure);
    void noteRemains();
    void noteCut();
    void describe();

    const ReadOptions &m_options; ///< borrowed from the caller
    VectorDrawing *m_drawing;     ///< borrowed from the caller
    HpglScanner m_scanner;
    HpglFrame m_frame;
    HpglPlotter m_plotter;
    HpglLettering m_lettering;
    QPointF m_lineStartMm;
    char m_labelEnd = '\x03';
    QByteArray m_heldLabel; ///< until it is to be written
    char m_symbol = '\0';
    bool m_isChordLength = false;
    bool m_isSecondLanguage = false;
    bool m_isWidthRelative = false;
    QSizeF m_sheet;
    qint64 m_commands = 0;
    qint64 m_damagedCommands = 0;
    qint64 m_unknownCommands = 0;
};

} // namespace vectorkit
