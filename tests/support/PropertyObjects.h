#pragma once

#include <ZTDrawEngineLib/ZTDrawEngineLib.h>

#include <QtCore/QDateTime>
#include <QtCore/QLocale>
#include <QtCore/QObject>
#include <QtCore/QPointF>
#include <QtCore/QRectF>
#include <QtGui/QColor>
#include <QtGui/QFont>
#include <QtGui/QTransform>

namespace testsupport {

/** A record that no helper knows. */
struct UnknownRecord
{
    int number = 0;
};

/** The properties of a text, without any geometry behind them. */
class TextObject : public QObject
{
    Q_OBJECT
    Q_PROPERTY(QPointF pos MEMBER pos NOTIFY written)
    Q_PROPERTY(ZTFillParam fillParam MEMBER fillParam NOTIFY written)
    Q_PROPERTY(QString text MEMBER text NOTIFY written)
    Q_PROPERTY(ZTRoundingParam roundingParam MEMBER roundingParam NOTIFY written)
    Q_PROPERTY(double lineSpan MEMBER lineSpan NOTIFY written)
    Q_PROPERTY(QFont font MEMBER font NOTIFY written)
    Q_PROPERTY(ZTShxFontParam shxFont MEMBER shxFont NOTIFY written)
    Q_PROPERTY(FontType fontType MEMBER fontType NOTIFY written)

public:
    TextObject() { font.setPixelSize(100); }

    QPointF pos;
    ZTFillParam fillParam;
    QString text;
    ZTRoundingParam roundingParam;
    double lineSpan = 1.5;
    QFont font;
    ZTShxFontParam shxFont;
    FontType fontType = FontType::doubleLine;

Q_SIGNALS:
    void written();
};

/** A property of every type that a grid edits, and some that it does not. */
class EveryTypeObject : public TextObject
{
    Q_OBJECT
    Q_PROPERTY(bool aBool MEMBER aBool)
    Q_PROPERTY(int anInt MEMBER anInt)
    Q_PROPERTY(QChar aChar MEMBER aChar)
    Q_PROPERTY(QColor aColor MEMBER aColor)
    Q_PROPERTY(QDate aDate MEMBER aDate)
    Q_PROPERTY(QTime aTime MEMBER aTime)
    Q_PROPERTY(QDateTime aDateTime MEMBER aDateTime)
    Q_PROPERTY(QPoint aPoint MEMBER aPoint)
    Q_PROPERTY(QSize aSize MEMBER aSize)
    Q_PROPERTY(QSizeF aSizeF MEMBER aSizeF)
    Q_PROPERTY(QRect aRect MEMBER aRect)
    Q_PROPERTY(QRectF aRectF MEMBER aRectF)
    Q_PROPERTY(QLocale aLocale MEMBER aLocale)
    Q_PROPERTY(ZTFontParam fontParam MEMBER fontParam)
    Q_PROPERTY(QTransform aTransform MEMBER aTransform)
    Q_PROPERTY(uint anUnsigned MEMBER anUnsigned)
    Q_PROPERTY(testsupport::UnknownRecord anUnknown READ unknown)

public:
    UnknownRecord unknown() const { return {}; }

    bool aBool = true;
    int anInt = 7;
    QChar aChar = QLatin1Char('x');
    QColor aColor = Qt::red;
    QDate aDate = QDate(2020, 2, 29);
    QTime aTime = QTime(12, 34);
    QDateTime aDateTime = QDateTime(aDate, aTime);
    QPoint aPoint = QPoint(1, 2);
    QSize aSize = QSize(3, 4);
    QSizeF aSizeF = QSizeF(3.5, 4.5);
    QRect aRect = QRect(1, 2, 3, 4);
    QRectF aRectF = QRectF(1.5, 2.5, 3.5, 4.5);
    QLocale aLocale = QLocale(QLocale::German, QLocale::Austria);
    ZTFontParam fontParam;
    QTransform aTransform;
    uint anUnsigned = 1;
};

} // namespace testsupport

Q_DECLARE_METATYPE(testsupport::UnknownRecord)
