#include "ExternalFriend/externalhitview.h"

#include "ExternalFriend/externalhitmodel.h"
#include "controls/avatarstore.h"
#include "controls/rowpainter.h"
#include "controls/skin.h"
#include "http/fileservices.h"

#include <QMouseEvent>
#include <QPainter>

#include <utility>

namespace {

constexpr int ButtonHeight = 24; // device-independent pixels, as all below
constexpr int ButtonPadding = 10;
constexpr int ButtonRadius = 4;
constexpr int ButtonPixels = 12;

// The same for each row: the texts of different rows end below each other.
int buttonWidth()
{
    using Model = ExternalHitModel;
    const QFontMetrics metrics(skinFont(ButtonPixels));
    int widest = 0;
    for (const Model::State state : {Model::MayAdd, Model::Requested, Model::Added})
        widest = qMax(widest, metrics.horizontalAdvance(Model::stateText(state)));
    return widest + 2 * ButtonPadding;
}

void drawButton(QPainter *painter, const QRect &area, const QStyleOptionViewItem &option,
                ExternalHitModel::State state)
{
    const Skin &skin = Skin::instance();
    const bool isButton = state == ExternalHitModel::MayAdd;
    const bool isHot = isButton && option.state.testFlag(QStyle::State_MouseOver);
    QColor ink = skin.quietText(option.state.testFlag(QStyle::State_Selected));
    if (isButton) {
        ink = isHot ? skin.colors().background : skin.colors().theme;
        painter->setRenderHint(QPainter::Antialiasing);
        painter->setPen(skin.colors().theme);
        painter->setBrush(isHot ? skin.colors().theme : skin.colors().background);
        painter->drawRoundedRect(QRectF(area).adjusted(0.5, 0.5, -0.5, -0.5), ButtonRadius,
                                 ButtonRadius);
    }
    painter->setFont(skinFont(ButtonPixels));
    painter->setPen(ink);
    painter->drawText(area, Qt::AlignCenter | Qt::TextSingleLine,
                      ExternalHitModel::stateText(state));
}

} // namespace

QSize ExternalHitDelegate::sizeHint(const QStyleOptionViewItem &, const QModelIndex &) const
{
    // The width is the view's own.
    return QSize(0, RowPainter::RowHeight);
}

void ExternalHitDelegate::paint(QPainter *painter, const QStyleOptionViewItem &option,
                                const QModelIndex &index) const
{
    painter->save();
    RowPainter(painter, option).background();
    const int width = buttonWidth();
    const QRect button(option.rect.right() - RowPainter::Margin - width + 1,
                       option.rect.center().y() - ButtonHeight / 2, width, ButtonHeight);
    drawButton(painter, QStyle::visualRect(option.direction, option.rect, button), option,
               ExternalHitModel::State(index.data(ExternalHitRole::State).toInt()));

    QStyleOptionViewItem beside = option;
    const QRect rest = option.rect.adjusted(0, 0, -width - RowPainter::Margin / 2, 0);
    beside.rect = QStyle::visualRect(option.direction, option.rect, rest);
    const QString jid = index.data(ExternalHitRole::Id).toString();
    const QString file =
        PictureFiles::instance().ofPerson(jid, index.data(ExternalHitRole::Photo).toString());
    RowPainter row(painter, beside);
    row.setSecondaryColor(QColor(RowPainter::CompanyColor));
    row.avatar(AvatarStore::instance().avatar(
                   file, jid, index.data(ExternalHitRole::Name).toString(), RowPainter::AvatarSize,
                   painter->device()->devicePixelRatioF()),
               false);
    row.texts(index.data(ExternalHitRole::MarkedName).value<MarkedText>(),
              index.data(ExternalHitRole::Company).toString(), false);
    painter->restore();
}

ExternalHitView::ExternalHitView(SearchBox *box, QAbstractItemModel *model, QWidget *parent)
    : FoundList(box, model, ExternalHitRole::Name, parent)
{
    setObjectName(QStringLiteral("externalHits"));
    setItemDelegate(new ExternalHitDelegate(this));
    setSelectionMode(SingleSelection);
    connect(this, &RowView::activatedRow, this, &ExternalHitView::chosen);
}

void ExternalHitView::mousePressEvent(QMouseEvent *event)
{
    m_pressedRow = event->button() == Qt::LeftButton ? indexAt(event->pos()) : QModelIndex();
    FoundList::mousePressEvent(event);
}

void ExternalHitView::mouseReleaseEvent(QMouseEvent *event)
{
    const QPersistentModelIndex pressed = std::exchange(m_pressedRow, QPersistentModelIndex());
    FoundList::mouseReleaseEvent(event);
    if (event->button() == Qt::LeftButton && pressed.isValid() && pressed == indexAt(event->pos()))
        emit chosen(pressed);
}

// The first of the two clicks has led to the person.
void ExternalHitView::mouseDoubleClickEvent(QMouseEvent *event)
{
    event->accept();
}
