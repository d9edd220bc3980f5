#include "GlyphRecipes.h"

#include <QtCore/QFile>
#include <QtCore/QStringList>

#include <algorithm>
#include <cmath>
#include <optional>

// A static library's resources have to be asked for by name, outside every namespace.
static void bringInGlyphs() { Q_INIT_RESOURCE(glyphs); }

namespace fontkit {

namespace {

constexpr double kFarthest = 10000.0;

bool fail(QString *problem, const QString &what)
{
    *problem = what;
    return false;
}

/** The character that a word names; 0 for none. */
uint characterOf(const QString &word)
{
    if (word.startsWith(QLatin1String("U+"))) {
        bool isNumber = false;
        const uint code = word.midRef(2).toUInt(&isNumber, 16);
        return isNumber && code <= 0xFFFF ? code : 0;
    }
    return word.size() == 1 ? word.at(0).unicode() : 0;
}

std::optional<double> numberOf(const QString &word)
{
    bool isNumber = false;
    const double number = word.toDouble(&isNumber);
    if (!isNumber || !(std::abs(number) <= kFarthest))
        return std::nullopt;
    return number;
}

std::optional<QPointF> pointOf(const QString &word)
{
    const auto x = numberOf(word.section(QLatin1Char(','), 0, 0));
    const auto y = numberOf(word.section(QLatin1Char(','), 1));
    if (!x || !y)
        return std::nullopt;
    return QPointF(*x, *y);
}

QPointF product(const QPointF &a, const QPointF &b) { return {a.x() * b.x(), a.y() * b.y()}; }

bool isArms(const QString &arms)
{
    constexpr int kArms = 4;
    if (arms.size() < kArms || arms.size() > kArms + 1)
        return false;
    const QString kinds = QStringLiteral("lhd-");
    const bool isKnown = std::all_of(arms.begin(), arms.begin() + kArms,
                                     [&kinds](QChar arm) { return kinds.contains(arm); });
    return isKnown && (arms.size() == kArms ||
                       (arms.at(kArms) >= QLatin1Char('2') && arms.at(kArms) <= QLatin1Char('9')));
}

} // namespace

bool GlyphRecipes::read(const QByteArray &text, QString *error)
{
    m_frameScale = {1.0, 1.0};
    m_frameMove = {};
    const QStringList lines = QString::fromUtf8(text).split(QLatin1Char('\n'));
    for (int i = 0; i < lines.size(); ++i) {
        QString problem;
        if (readLine(lines.at(i), &problem))
            continue;
        if (error != nullptr)
            *error = QStringLiteral("line %1: %2").arg(i + 1).arg(problem);
        return false;
    }
    return true;
}

GlyphRecipes GlyphRecipes::alphabets()
{
    GlyphRecipes recipes;
    recipes.readOnBoard({QStringLiteral("marks"), QStringLiteral("latin"), QStringLiteral("greek"),
                         QStringLiteral("cyrillic"), QStringLiteral("signs"),
                         QStringLiteral("kana")});
    return recipes;
}

GlyphRecipes GlyphRecipes::bigFont()
{
    GlyphRecipes recipes = alphabets();
    recipes.readOnBoard({QStringLiteral("gbk"), QStringLiteral("bopomofo"), QStringLiteral("box")});
    return recipes;
}

const Recipe *GlyphRecipes::of(uint character) const
{
    const auto found = m_recipes.constFind(character);
    return found != m_recipes.constEnd() ? &*found : nullptr;
}

QVector<uint> GlyphRecipes::characters() const
{
    QVector<uint> all = m_composed;
    for (auto it = m_recipes.begin(); it != m_recipes.end(); ++it)
        all.append(it.key());
    std::sort(all.begin(), all.end());
    all.erase(std::unique(all.begin(), all.end()), all.end());
    return all;
}

void GlyphRecipes::readOnBoard(const QStringList &names)
{
    bringInGlyphs();
    for (const QString &name : names) {
        QFile file(QStringLiteral(":/fontkit/%1.txt").arg(name));
        QString error;
        if (!file.open(QIODevice::ReadOnly) || !read(file.readAll(), &error))
            qFatal("glyphs/%s.txt: %s", qPrintable(name), qPrintable(error)); // a fault of ours
    }
}

bool GlyphRecipes::readLine(const QString &line, QString *problem)
{
    if (line.trimmed().isEmpty() || line.startsWith(QLatin1Char('#')))
        return true;
    const QStringList words = line.split(QLatin1Char(' '), Qt::SkipEmptyParts);
    if (words.first() == QLatin1String("frame"))
        return readFrame(words) || fail(problem, QStringLiteral("frame SX,SY DX,DY expected"));
    if (words.first() != QLatin1String("compose"))
        return readRecipe(line, problem);
    for (const QString &word : words.mid(1)) {
        for (const uint character : word.toUcs4())
            m_composed.append(character);
    }
    return true;
}

bool GlyphRecipes::readFrame(const QStringList &words)
{
    const auto scale = words.size() == 3 ? pointOf(words.at(1)) : std::nullopt;
    const auto move = words.size() == 3 ? pointOf(words.at(2)) : std::nullopt;
    if (!scale || !move)
        return false;
    m_frameScale = *scale;
    m_frameMove = *move;
    return true;
}

bool GlyphRecipes::readRecipe(const QString &line, QString *problem)
{
    const int colon = line.indexOf(QLatin1Char(':'), 1); // the character itself may be one
    const QStringList head = line.left(colon).split(QLatin1Char(' '), Qt::SkipEmptyParts);
    const uint character = head.isEmpty() ? 0 : characterOf(head.first());
    const auto advance = head.size() == 2 ? numberOf(head.last()) : std::nullopt;
    if (colon < 0 || character == 0 || !advance)
        return fail(problem, QStringLiteral("a character, its advance and a colon expected"));
    Recipe recipe;
    recipe.advance = *advance;
    const QStringList pieces = line.mid(colon + 1).split(QLatin1Char(';'), Qt::SkipEmptyParts);
    for (const QString &text : pieces) {
        RecipePiece piece;
        if (text.trimmed().isEmpty())
            continue;
        if (!readPiece(text, &piece))
            return fail(problem, QStringLiteral("\"%1\" is no piece").arg(text.trimmed()));
        recipe.pieces.append(piece);
    }
    m_recipes.insert(character, recipe);
    return true;
}

bool GlyphRecipes::readPiece(const QString &text, RecipePiece *piece) const
{
    using Kind = RecipePiece::Kind;
    const QStringList words = text.split(QLatin1Char(' '), Qt::SkipEmptyParts);
    const QString &name = words.first();
    if (name == QLatin1String("use"))
        return readUse(words, piece);
    if (name == QLatin1String("box")) {
        piece->kind = Kind::Box;
        piece->arms = words.value(1);
        return words.size() == 2 && isArms(piece->arms);
    }
    if (!readPoints(words.mid(1), &piece->points))
        return false;
    if (name == QLatin1String("dot")) {
        piece->kind = Kind::Dot;
        return piece->points.size() == 1;
    }
    if (name == QLatin1String("ring")) {
        piece->kind = Kind::Ring;
        if (piece->points.size() == 2) // its radii have a size, no place
            piece->points[1] -= m_frameMove;
        return piece->points.size() == 2;
    }
    piece->kind = name == QLatin1String("curve") ? Kind::Curve : Kind::Line;
    return (name == QLatin1String("curve") || name == QLatin1String("line")) &&
           piece->points.size() >= 2;
}

bool GlyphRecipes::readUse(const QStringList &words, RecipePiece *piece) const
{
    piece->kind = RecipePiece::Kind::Use;
    piece->used = characterOf(words.value(1));
    bool isGood = piece->used != 0;
    for (int i = 2; isGood && i < words.size(); ++i) {
        if (words.at(i) == QLatin1String("flip")) {
            piece->isFlipped = true;
            continue;
        }
        const auto point = pointOf(words.value(i + 1));
        if (point && words.at(i) == QLatin1String("scale"))
            piece->scale = *point;
        else if (point && words.at(i) == QLatin1String("move"))
            piece->move = *point;
        else
            isGood = false;
        ++i;
    }
    return isGood;
}

bool GlyphRecipes::readPoints(const QStringList &words, QVector<QPointF> *points) const
{
    for (const QString &word : words) {
        const auto point = pointOf(word);
        if (!point)
            return false;
        points->append(product(*point, m_frameScale) + m_frameMove);
    }
    return true;
}

} // namespace fontkit
