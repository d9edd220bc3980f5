#include "GlyphCompiler_p.h"

#include "CodeText_p.h"
#include "GlyphCodes_p.h"

#include <algorithm>

namespace fontkit {

namespace {

/** What a statement is compiled with. */
struct Context
{
    Statement &statement;
    FontForm form;
    GlyphProgram &program;
};

int direction(Statement &statement)
{
    const QByteArray name = statement.word("a direction");
    const auto *found = std::find_if(std::begin(kDirectionNames), std::end(kDirectionNames),
                                     [&](const char *known) { return name == known; });
    if (found == std::end(kDirectionNames))
        statement.fail(shown(name) + QStringLiteral(" is no direction such as n, ne or nne"));
    return static_cast<int>(found - std::begin(kDirectionNames));
}

/** "line ne 4" is a vector, "line 3 -4" a step of its own. */
void line(Context &context)
{
    Statement &statement = context.statement;
    if (statement.isNumberNext()) {
        const int dx = statement.number();
        context.program.line(dx, statement.number());
    } else {
        const int toWhere = direction(statement);
        context.program.vector(statement.number(), toWhere);
    }
}

void lines(Context &context)
{
    std::vector<QPoint> steps;
    while (!context.statement.atEnd()) {
        const std::vector<int> pair = context.statement.tuple(2);
        steps.emplace_back(pair[0], pair[1]);
    }
    context.program.lines(steps);
}

OctantSpan octants(Statement &statement)
{
    OctantSpan octants;
    statement.expect("from");
    octants.start = statement.number();
    statement.expect("over");
    octants.span = statement.number();
    octants.clockwise = statement.accept("clockwise");
    return octants;
}

void arc(Context &context)
{
    const int radius = context.statement.number();
    context.program.octantArc(radius, octants(context.statement));
}

void fractionalArc(Context &context)
{
    Statement &statement = context.statement;
    const int radius = statement.number();
    const OctantSpan span = octants(statement);
    statement.expect("start");
    const int start = statement.number();
    statement.expect("end");
    context.program.fractionalArc(radius, span, start, statement.number());
}

void bulge(Context &context)
{
    BulgeStep step;
    step.dx = context.statement.number();
    step.dy = context.statement.number();
    const bool hasBulge = step.dx != 0 || step.dy != 0;
    if (hasBulge || !context.statement.atEnd())
        step.bulge = context.statement.number();
    if (!hasBulge && step.bulge != 0)
        context.statement.fail(QStringLiteral("0 0 has no bulge"));
    context.program.bulge(step);
}

void bulges(Context &context)
{
    std::vector<BulgeStep> steps;
    while (!context.statement.atEnd()) {
        const std::vector<int> triple = context.statement.tuple(3);
        steps.push_back({triple[0], triple[1], triple[2]});
    }
    context.program.bulges(steps);
}

struct Handler
{
    const char *keyword;
    void (*compile)(Context &context);
};

const Handler kHandlers[] = {
    {"line", line},
    {"lines", lines},
    {"up", [](Context &context) { context.program.penUp(); }},
    {"down", [](Context &context) { context.program.penDown(); }},
    {"end", [](Context &context) { context.program.end(); }},
    {"arc", arc},
    {"fractional-arc", fractionalArc},
    {"bulge", bulge},
    {"bulges", bulges},
    {"push", [](Context &context) { context.program.push(); }},
    {"pop", [](Context &context) { context.program.pop(); }},
    {"scale-up", [](Context &context) { context.program.scaleUp(context.statement.number()); }},
    {"scale-down", [](Context &context) { context.program.scaleDown(context.statement.number()); }},
    {"subshape",
     [](Context &context) {
         context.program.subshape(codeOperand(context.statement, context.form));
     }},
    {"vertical", [](Context &context) { context.program.verticalOnly(); }},
    {"raw", [](Context &context) { context.program.raw(context.statement.hexBytes()); }},
};

} // namespace

int codeOperand(Statement &statement, FontForm form)
{
    QString character;
    if (!statement.acceptCharacter(&character))
        return statement.number(0, 0xFFFF);
    const auto code = codeOf(character, form);
    if (!code)
        statement.fail(QStringLiteral("'%1' has no code in a %2 font; give it as a number")
                           .arg(character, QLatin1String(keywordOf(form))));
    return *code;
}

void compileGlyphStatement(Statement &statement, FontForm form, GlyphProgram &program)
{
    const QByteArray keyword = statement.keyword();
    const auto *handler =
        std::find_if(std::begin(kHandlers), std::end(kHandlers),
                     [&](const Handler &known) { return keyword == known.keyword; });
    if (handler == std::end(kHandlers))
        statement.fail(shown(keyword) + QStringLiteral(" is no statement"));
    Context context{statement, form, program};
    handler->compile(context);
    statement.finish();
    if (!program.error().isEmpty())
        statement.fail(program.error());
}

} // namespace fontkit
