#include <studio/import/ImportNotes.h>

#include <QtCore/QCoreApplication>

namespace studio {

namespace {

struct NoteTexts
{
    Q_DECLARE_TR_FUNCTIONS(studio::ImportNotes)
};

QString kindText(vectorkit::VectorNote::Kind kind)
{
    switch (kind) {
    case vectorkit::VectorNote::Kind::Left:
        return NoteTexts::tr("left out");
    case vectorkit::VectorNote::Kind::Changed:
        return NoteTexts::tr("changed");
    default:
        return NoteTexts::tr("damaged");
    }
}

} // namespace

QString noteText(const vectorkit::VectorNote &note)
{
    const QString what =
        NoteTexts::tr("%1: %2 (%3)").arg(kindText(note.kind), note.what).arg(note.count);
    return note.where.isEmpty() ? what : NoteTexts::tr("%1, first at %2").arg(what, note.where);
}

QStringList lossesOf(const vectorkit::VectorDrawing &drawing)
{
    QStringList lines;
    for (const vectorkit::VectorNote &note : drawing.notes) {
        if (note.kind != vectorkit::VectorNote::Kind::Changed)
            lines << noteText(note);
    }
    return lines;
}

} // namespace studio
