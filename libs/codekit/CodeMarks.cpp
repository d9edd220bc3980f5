#include <codekit/CodeMarks.h>

#include <codekit/ModuleGrid_p.h>

#include <QtCore/QCoreApplication>
#include <QtCore/QLineF>

#include <algorithm>
#include <cmath>

namespace codekit {

namespace {

constexpr double kMostMm = 100000.0;

QString tr(const char *text) { return QCoreApplication::translate("codekit", text); }

bool checkForm(const CodeSymbol &symbol, const CodeForm &form, QString *reason)
{
    const auto isLength = [](double value) { return value > 0.0 && value <= kMostMm; };
    const bool isLinear = infoOf(symbol.kind).isLinear;
    // A line of a beam as wide as the module: of a module alone a point is left.
    const bool isLine = form.style == CodeStyle::BarLines && form.growthMm == form.moduleMm;
    if (!isLength(form.moduleMm))
        *reason = tr("the module is more than 0 mm and at most 100 m");
    else if (isLinear && !isLength(form.heightMm))
        *reason = tr("the height of the bars is more than 0 mm and at most 100 m");
    else if (!(form.growthMm >= 0.0 && (form.growthMm < form.moduleMm || isLine)))
        *reason = tr("the growth is less than the module, and not negative");
    else if (isLinear && form.growthMm >= form.heightMm)
        *reason = tr("the growth is less than the height of the bars");
    else if (!(form.dotShare > 0.0 && form.dotShare <= 1.0))
        *reason = tr("a dot is more than nothing and at most as wide as the module");
    else
        return true;
    return false;
}

QVector<double> edges(const QVector<double> &sizes, double start)
{
    QVector<double> all{start};
    double sum = 0.0;
    for (const double size : sizes) {
        sum += size;
        all.append(start + sum);
    }
    return all;
}

QVector<double> rowHeightsMm(const CodeSymbol &symbol, const CodeForm &form)
{
    const bool isLinear = infoOf(symbol.kind).isLinear;
    QVector<double> heights;
    for (const double modules : symbol.rowModules)
        heights.append(isLinear ? form.heightMm : modules * form.moduleMm);
    return heights;
}

/** Column edges as multiples of the module, so that no sum of roundings grows. */
QVector<double> columnEdges(int first, int count, double moduleMm)
{
    QVector<double> all;
    for (int column = first; column <= first + count; ++column)
        all.append(column * moduleMm);
    return all;
}

/** What is to be marked: the dark cells, or what is light in code and quiet zone. */
ModuleGrid markedGrid(const CodeSymbol &symbol, const CodeForm &form)
{
    const QMargins quiet = form.isInverse ? infoOf(symbol.kind).quietModules : QMargins();
    QVector<double> heights = rowHeightsMm(symbol, form);
    for (int row = 0; row < quiet.top(); ++row)
        heights.prepend(form.moduleMm);
    for (int row = 0; row < quiet.bottom(); ++row)
        heights.append(form.moduleMm);
    const int columns = symbol.columns + quiet.left() + quiet.right();
    ModuleGrid grid(columnEdges(-quiet.left(), columns, form.moduleMm),
                    edges(heights, -quiet.top() * form.moduleMm));
    for (int row = 0; row < grid.rows(); ++row) {
        for (int column = 0; column < grid.columns(); ++column) {
            const int codeRow = row - quiet.top();
            const int codeColumn = column - quiet.left();
            const bool isInside = codeRow >= 0 && codeRow < symbol.rows && codeColumn >= 0 &&
                                  codeColumn < symbol.columns;
            const bool isDark = isInside && symbol.isDark(codeRow, codeColumn);
            grid.setDark(row, column, isDark != form.isInverse);
        }
    }
    return grid;
}

/** Calls `take(row, column)` for the cells to be marked, row by row, every second one backwards. */
template <class Take>
void eachCell(const ModuleGrid &grid, Take take)
{
    for (int row = 0; row < grid.rows(); ++row) {
        for (int step = 0; step < grid.columns(); ++step) {
            const int column = row % 2 == 0 ? step : grid.columns() - 1 - step;
            if (grid.isDark(row, column))
                take(row, column);
        }
    }
}

QRectF cellOf(const ModuleGrid &grid, int row, int first, int last, double insetMm)
{
    return QRectF(QPointF(grid.left(first), grid.top(row)),
                  QPointF(grid.right(last), grid.bottom(row)))
        .adjusted(insetMm, insetMm, -insetMm, -insetMm);
}

void addMerged(const ModuleGrid &grid, double insetMm, QPainterPath *path)
{
    const QVector<QPolygonF> outlines = grid.outlines(insetMm);
    for (const QPolygonF &outline : outlines) {
        path->addPolygon(outline);
        path->closeSubpath();
    }
}

/** Calls `take(first, last)` for each run of dark cells in a row. */
template <class Take>
void eachRun(const ModuleGrid &grid, int row, Take take)
{
    for (int column = 0; column < grid.columns(); ++column) {
        const int first = column;
        while (grid.isDark(row, column))
            ++column;
        if (column > first)
            take(first, column - 1);
    }
}

void addBars(const ModuleGrid &grid, double insetMm, QPainterPath *path)
{
    for (int row = 0; row < grid.rows(); ++row) {
        eachRun(grid, row, [&](int first, int last) {
            path->addRect(cellOf(grid, row, first, last, insetMm));
        });
    }
}

bool hasSquareModules(const CodeSymbol &symbol)
{
    return !infoOf(symbol.kind).isLinear &&
           std::all_of(symbol.rowModules.begin(), symbol.rowModules.end(),
                       [](double height) { return height == 1.0; });
}

/** Each dark module of a bar as a line down its middle, from the top and back by turns. */
void addLinesDown(const ModuleGrid &grid, double insetMm, QVector<QLineF> *lines)
{
    bool isUp = false;
    eachCell(grid, [&](int row, int column) {
        const QRectF cell = cellOf(grid, row, column, column, 0.0);
        const QLineF down(cell.center().x(), cell.top() + insetMm, cell.center().x(),
                          cell.bottom() - insetMm);
        lines->append(isUp ? QLineF(down.p2(), down.p1()) : down);
        isUp = !isUp;
    });
}

/** Each run of dark modules in a row as a line along its middle, every second row backwards. */
void addLinesAcross(const ModuleGrid &grid, double insetMm, QVector<QLineF> *lines)
{
    for (int row = 0; row < grid.rows(); ++row) {
        QVector<QLineF> across;
        eachRun(grid, row, [&](int first, int last) {
            const QRectF run = cellOf(grid, row, first, last, 0.0);
            across.append(QLineF(run.left() + insetMm, run.center().y(), run.right() - insetMm,
                                 run.center().y()));
        });
        if (row % 2 == 0) {
            lines->append(across);
            continue;
        }
        std::for_each(across.rbegin(), across.rend(),
                      [lines](const QLineF &line) { lines->append(QLineF(line.p2(), line.p1())); });
    }
}

void addDots(const ModuleGrid &grid, const CodeForm &form, QPainterPath *path)
{
    const double radius = (form.moduleMm * form.dotShare - form.growthMm) / 2.0;
    eachCell(grid, [&](int row, int column) {
        path->addEllipse(cellOf(grid, row, column, column, 0.0).center(), radius, radius);
    });
}

} // namespace

QSizeF codeSizeMm(const CodeSymbol &symbol, const CodeForm &form)
{
    double height = 0.0;
    for (const double row : rowHeightsMm(symbol, form))
        height += row;
    return QSizeF(symbol.columns * form.moduleMm, height);
}

double moduleForWidth(const CodeSymbol &symbol, double widthMm)
{
    return symbol.columns > 0 ? widthMm / symbol.columns : widthMm;
}

bool markCode(const CodeSymbol &symbol, const CodeForm &form, CodeMarks *marks, QString *reason)
{
    if (!checkForm(symbol, form, reason))
        return false;
    if (form.style == CodeStyle::Dots && form.growthMm >= form.moduleMm * form.dotShare) {
        *reason = tr("the growth leaves nothing of the dots");
        return false;
    }
    const ModuleGrid grid = markedGrid(symbol, form);
    const double inset = form.growthMm / 2.0;
    CodeMarks made;
    made.areas.setFillRule(Qt::OddEvenFill);
    switch (form.style) {
    case CodeStyle::Merged:
        addMerged(grid, inset, &made.areas);
        break;
    case CodeStyle::Squares:
        eachCell(grid, [&](int row, int column) {
            made.areas.addRect(cellOf(grid, row, column, column, inset));
        });
        break;
    case CodeStyle::Dots:
        addDots(grid, form, &made.areas);
        break;
    case CodeStyle::Points:
        eachCell(grid, [&](int row, int column) {
            made.points.append(cellOf(grid, row, column, column, 0.0).center());
        });
        break;
    case CodeStyle::Bars:
        addBars(grid, inset, &made.areas);
        break;
    case CodeStyle::BarLines:
        if (hasSquareModules(symbol))
            addLinesAcross(grid, inset, &made.lines);
        else
            addLinesDown(grid, inset, &made.lines);
        break;
    }
    const QMargins quiet = infoOf(symbol.kind).quietModules;
    made.symbolMm = QRectF(QPointF(), codeSizeMm(symbol, form));
    made.fieldMm =
        made.symbolMm.adjusted(-quiet.left() * form.moduleMm, -quiet.top() * form.moduleMm,
                               quiet.right() * form.moduleMm, quiet.bottom() * form.moduleMm);
    *marks = made;
    return true;
}

} // namespace codekit
