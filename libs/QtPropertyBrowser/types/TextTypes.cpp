#include <QtPropertyBrowser/types/RowTexts_p.h>
#include <QtPropertyBrowser/types/RowType_p.h>

#include <QtPropertyBrowser/types/TextPattern_p.h>

#include <QtGui/QKeySequence>
#include <QtWidgets/QLineEdit>

namespace rowtypes {

namespace {

class StringType : public RowType
{
public:
    StringType() : RowType(QMetaType::QString, QMetaType::QString) {}

    QVariant initialValue() const override { return QString(); }

    QVector<AttributeSpec> attributes() const override
    {
        return {{regExpName(), QMetaType::QRegExp, QRegExp()},
                {echoModeName(), QMetaType::Int, int(QLineEdit::Normal)},
                {readOnlyName(), QMetaType::Bool, false}};
    }

    QVariant convertedAttribute(const AttributeSpec &spec, const QVariant &value) const override
    {
        if (spec.name == regExpName() && value.userType() == QMetaType::QRegularExpression)
            return value;
        return RowType::convertedAttribute(spec, value);
    }

    void setAttribute(QVariantMap *attributes, const QString &name,
                      const QVariant &value) const override
    {
        const bool isMode = name == echoModeName();
        const int highest = QLineEdit::PasswordEchoOnEdit;
        attributes->insert(name, isMode ? QVariant(qBound(0, value.toInt(), highest)) : value);
    }

    bool accepts(const QVariant &value, const QVariantMap &attributes) const override
    {
        return matchesPattern(value.toString(), attributes.value(regExpName()));
    }

    QString text(const QVariant &value, const QVariantMap &attributes) const override
    {
        switch (attributes.value(echoModeName()).toInt()) {
        case QLineEdit::NoEcho:
            return {};
        case QLineEdit::Password:
        case QLineEdit::PasswordEchoOnEdit:
            return QString(value.toString().size(), QChar(0x25cf));
        default:
            return value.toString();
        }
    }
};

class CharType : public RowType
{
public:
    CharType() : RowType(QMetaType::QChar, QMetaType::QChar) {}

    QVariant initialValue() const override { return QChar(); }

    QString text(const QVariant &value, const QVariantMap &) const override
    {
        const QChar held = value.toChar();
        return held.isNull() ? QString() : QString(held);
    }
};

class KeySequenceType : public RowType
{
public:
    KeySequenceType() : RowType(QMetaType::QKeySequence, QMetaType::QKeySequence) {}

    QVariant initialValue() const override { return QVariant::fromValue(QKeySequence()); }

    QString text(const QVariant &value, const QVariantMap &) const override
    {
        return value.value<QKeySequence>().toString(QKeySequence::NativeText);
    }
};

} // namespace

bool matchesPattern(const QString &text, const QVariant &pattern)
{
    if (pattern.userType() == QMetaType::QRegularExpression) {
        const QRegularExpression expression = pattern.toRegularExpression();
        if (expression.pattern().isEmpty() || !expression.isValid())
            return true;
        const QString whole = QRegularExpression::anchoredPattern(expression.pattern());
        return QRegularExpression(whole, expression.patternOptions()).match(text).hasMatch();
    }
    const QRegExp expression = pattern.toRegExp();
    return expression.isEmpty() || !expression.isValid() || expression.exactMatch(text);
}

void addTextTypes(RowTypes *types)
{
    types->push_back(std::make_unique<StringType>());
    types->push_back(std::make_unique<CharType>());
    types->push_back(std::make_unique<KeySequenceType>());
}

} // namespace rowtypes
