#pragma once

#include <QtWidgets/QListView>

QT_BEGIN_NAMESPACE
class QStringListModel;
QT_END_NAMESPACE

namespace studio {

class StrokeSamples;

/** A list of stroke fonts that shows each face drawn in itself. */
class StrokeFontList : public QListView
{
    Q_OBJECT

public:
    /** `samples` is borrowed and outlives the list. */
    StrokeFontList(const QStringList &names, StrokeSamples &samples, QWidget *parent = nullptr);

    /** Name of the chosen font; empty for none. */
    QString chosen() const;

    /** Chooses without telling; a name that is not listed chooses none. */
    void choose(const QString &name);

    QSize sizeHint() const override;

Q_SIGNALS:
    void chosenByUser(const QString &name);

protected:
    void currentChanged(const QModelIndex &current, const QModelIndex &previous) override;

private:
    QStringListModel *m_fonts;
    bool m_isQuiet = false;
};

} // namespace studio
