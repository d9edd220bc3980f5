#pragma once

#include <studio/text/FontOffers.h>

#include <QtWidgets/QWidget>

QT_BEGIN_NAMESPACE
class QHBoxLayout;
class QLabel;
QT_END_NAMESPACE

namespace studio {

/**
 * Names the characters that a text's font does not draw, with a button for each font that draws
 * all of the text. Hidden while nothing is missing.
 */
class MissingCharactersBar : public QWidget
{
    Q_OBJECT

public:
    explicit MissingCharactersBar(QWidget *parent = nullptr);

    /** Looks at a text in the fonts of the settings; gives what is missing. */
    QStringList look(const QString &text, const TextSettings &settings);

Q_SIGNALS:
    void chosen(const studio::FontOffer &offer); ///< by the user

private:
    void offer(const QVector<FontOffer> &offers);

    QLabel *m_label;
    QHBoxLayout *m_buttons;
};

} // namespace studio
