// What the frames of a card have in common, the window and the floating one: their
// signals and slots are named alike.
#pragma once

#include "detail/cardbody.h"
#include "plugin/frienduisignalsender.h"

namespace CardFrame {

// What the user may do, by the host's rights.
CardBody::Buttons userRights();

// What the user does in the body comes to the frame, and from there to its owner.
template <class Frame> void connectBody(Frame *frame, CardBody *body)
{
    QObject::connect(body, &CardBody::pictureClicked, frame,
                     [frame] { emit frame->signal_showPhoto(frame->jid()); });
    QObject::connect(body, &CardBody::topicClicked, frame, &Frame::slot_showTopicWidget);
    QObject::connect(body, &CardBody::positionClicked, frame, &Frame::slot_orgPosition);
    QObject::connect(body, &CardBody::mailClicked, frame, &Frame::slot_sendMail);
    QObject::connect(body, &CardBody::chatClicked, frame, &Frame::slot_opendialog);
    QObject::connect(body, &CardBody::remarkClicked, frame, &Frame::slot_setFriendName);
    QObject::connect(body, &CardBody::reloadClicked, frame, &Frame::slot_reloadVcard);
    QObject::connect(body, &CardBody::leaderClicked, frame, &Frame::signal_showDetailWidget);

    const auto *hub = FriendUISignalSender::instance();
    using Hub = FriendUISignalSender;
    QObject::connect(hub, &Hub::signal_SkinChange, frame, &Frame::slot_SkinChange);
    QObject::connect(hub, &Hub::signal_notifyFriendRemarkName, body, &CardBody::takeRemark);
    QObject::connect(hub, &Hub::signal_updateFriendPresence, body, &CardBody::takePresence);
}

// What the owner does for the frame, and what the host says.
template <class Frame, class Manager> void connectManager(Frame *frame, Manager *manager)
{
    QObject::connect(frame, &Frame::signal_showTopicWidget, manager,
                     &Manager::slot_showTopicWidget);
    QObject::connect(frame, &Frame::signal_showPhoto, manager, &Manager::slot_showPhoto);
    QObject::connect(frame, &Frame::signal_orgPosition, manager, &Manager::slot_orgPosition);
    QObject::connect(frame, &Frame::signal_sendMail, manager, &Manager::slot_sendMail);
    QObject::connect(frame, &Frame::signal_opendialog, manager, &Manager::slot_opendialog);

    const auto *hub = FriendUISignalSender::instance();
    using Hub = FriendUISignalSender;
    QObject::connect(hub, &Hub::signal_isConnected, frame, &Frame::slot_setBtn);
    QObject::connect(hub, &Hub::signal_FriendVcardInfo, frame, &Frame::slot_EmployeeInfo);
    QObject::connect(hub, &Hub::signal_FriendFullVcardInfo, frame, &Frame::slot_EmployeeInfo);
    QObject::connect(hub, &Hub::signal_UpdateFrdHead, frame, &Frame::slot_replacepic);
    QObject::connect(hub, &Hub::signal_GetVcardFail, frame, &Frame::slot_getVcardFail);
    QObject::connect(hub, &Hub::signal_GetVcardSuccessNoChange, frame,
                     &Frame::slot_GetVcardSuccessNoChange);
    QObject::connect(hub, &Hub::signal_notifyCooperate, frame, &Frame::slot_notifyCooperate);
}

} // namespace CardFrame
