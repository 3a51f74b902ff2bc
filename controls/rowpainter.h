// Paints the parts that rows of all lists share: background, avatar with its
// presence mark, one or two lines of text.
#pragma once

#include "controls/markedline.h"
#include "hostapi/rosterrecords.h"

#include <QFont>
#include <QPainter>
#include <QStyleOptionViewItem>
#include <QVector>

class RowPainter
{
public:
    static constexpr int RowHeight = 44; // device-independent pixels, as all below
    static constexpr int AvatarSize = 32;
    static constexpr QRgb CompanyColor = 0xff8f8f8f; // of companies and the like beside names
    static constexpr int MarkSize = 16;
    static constexpr int SmallMarkSize = 14;
    static constexpr int Margin = 12;

    RowPainter(QPainter *painter, const QStyleOptionViewItem &option);

    // The style's item panel in the skin's colours, and the focus frame.
    void background();

    // Leaves room at the left of the row.
    void indent(int pixels) { m_left.setLeft(m_left.left() + pixels); }

    // At the left of what is left of the row. `faded` for who is offline.
    void avatar(const QPixmap &pixmap, bool faded);

    // Over the lower right of the avatar; the kinds differ in shape, not only in
    // colour.
    void presence(const PresenceData &presence);

    // The sign of a row that can be opened, at the left of what is left of the row.
    void caret(bool open);
    static constexpr int CaretSize = 16;
    static constexpr int CaretRoom = 20; // with the gap behind it

    // A mark at the left of what is left of the row.
    void mark(const QPixmap &glyph);

    // A mark at the right of what is left of the row.
    void markAtRight(const QPixmap &glyph);

    // That the person is none of the user's company, in every list alike: at the right of
    // what is left of the row, or small at the right of the first of two lines. Rows tell
    // it in words by outsideText().
    void outside();
    void outsideInFirstLine();

    // A small mark over the lower right of the avatar.
    void overlay(const QPixmap &glyph);

    // At the right of the first of two lines: a short text in quiet colour, small
    // marks; of the second line: how many messages are unread, if any, small marks.
    // Before texts().
    void textAtRight(const QString &text) { textAtRight(MarkedText{text, {}}); }
    void textAtRight(const MarkedText &text);
    void markInFirstLine(const QPixmap &glyph);
    void badge(int count);
    void markInSecondLine(const QPixmap &glyph);
    // What a badge says.
    static QString badgeText(int count);
    // A badge elsewhere: its size, which is empty for nothing unread, and itself.
    static QSize badgeSize(int count);
    static void drawBadge(QPainter *painter, const QRect &area, int count);

    // Over the lower right of the avatar: that the row is an official account, which no
    // name that somebody chooses makes it look like.
    void verified();
    static void drawVerified(QPainter *painter, const QRectF &area);

    // Room at the right of what is left of the row for what only one list paints, as
    // high as the row and mirrored for right-to-left.
    QRect takeAtRight(int width);

    // The colour of a row's less important texts instead of the skin's. On a selected
    // row it gives way to what can be read there.
    void setSecondaryColor(const QColor &color) { m_secondary = color; }
    QColor secondaryColor() const;

    // `second` may be empty; texts are cut with an ellipsis.
    void texts(const QString &first, const QString &second, bool faded)
    {
        texts(MarkedText{first, {}}, second, faded);
    }
    void texts(const MarkedText &first, const QString &second, bool faded);
    // The second line in pieces: texts, or as marks on a ground of their colour. On a
    // selected row the colours of the texts give way as that of setSecondaryColor().
    struct Piece
    {
        QString text;
        QColor color;
        bool isMark = false;
    };
    void texts(const MarkedText &first, const QVector<Piece> &second, bool faded);
    void texts(const QString &first, const QVector<Piece> &second, bool faded)
    {
        texts(MarkedText{first, {}}, second, faded);
    }

    // For what only one list paints: the part of the row that nothing was painted on yet,
    // not mirrored for right-to-left.
    QRect rest() const { return m_left; }

    static void drawPresence(QPainter *painter, const QRectF &area, const PresenceData &presence);

private:
    QRect firstLine() const; // of two, what is left of it
    QRect secondLine() const;
    void drawSecondLine(const QVector<Piece> &pieces);
    void drawName(const MarkedText &name, const QRect &line, bool faded);
    void smallMark(const QPixmap &glyph, const QRect &line, int *taken);
    QRect visual(const QRect &area) const;

    QPainter *m_painter;
    const QStyleOptionViewItem &m_option;
    QRect m_left; // the part of the row that nothing was painted on yet
    QRect m_avatar;
    QColor m_secondary;    // invalid: the skin's
    int m_firstTaken = 0;  // pixels at the right of the first line
    int m_secondTaken = 0; // and of the second
};
