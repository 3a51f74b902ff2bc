#include "detail/remarkedit.h"

#include "common/context.h"
#include "controls/inputbox.h"
#include "controls/tipbox.h"
#include "plugin/frienduieventprocess.h"

#include <QPointer>

void editRemark(QWidget *parent, const QString &jid)
{
    FriendData contact;
    if (!ctx().friendData(jid, &contact))
        return;
    const QPointer<QWidget> window(parent);
    InputBox::ask(parent, QObject::tr("changeRemark"), QObject::tr("remarkColon"), contact.remark,
                  {}, [window, jid](const QString &text) {
                      // Much may have happened while the box was open.
                      FriendData now;
                      if (!window || !ctx().friendData(jid, &now))
                          return;
                      if (text.trimmed() == now.remark)
                          TipBox::tell(window, QObject::tr("notmodify"));
                      else if (!isOnline())
                          TipBox::tell(window, QObject::tr("notexecuteoperation"));
                      else
                          FriendUIEventProcess::setRemark(jid, text.trimmed());
                  });
}
