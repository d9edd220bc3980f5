#pragma once

#include <hostkit/marks/MarkGraphWriter.h>

#include <QtWidgets/QDialog>

QT_BEGIN_NAMESPACE
class QCheckBox;
QT_END_NAMESPACE

namespace studio {

/** Asks what a picture of mark paths shows beside the marks; remembers it for the next one. */
class PictureLookDialog : public QDialog
{
    Q_OBJECT

public:
    explicit PictureLookDialog(QWidget *parent = nullptr);

    hostkit::MarkPictureLook look() const;

Q_SIGNALS:
    /** Without waiting: when the user goes on. */
    void chosen(const hostkit::MarkPictureLook &look);

private:
    void finish();

    QCheckBox *m_jumps; ///< child, as all below
    QCheckBox *m_arrows;
    QCheckBox *m_background;
};

} // namespace studio
