<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="en" sourcelanguage="en">
<context>
    <name>ExternalNews</name>
    <message>
        <source>%1 of %2</source>
        <translation>%1 of %2</translation>
    </message>
    <message>
        <source>asks to become an external contact: %1</source>
        <translation>asks to become an external contact: %1</translation>
    </message>
</context>
<context>
    <name>ExternalRoster</name>
    <message>
        <source>The remark could not be stored.</source>
        <translation>The remark could not be stored.</translation>
    </message>
</context>
<context>
    <name>MonitorPanel</name>
    <message>
        <source>%1 older ones dropped</source>
        <translation>%1 older ones dropped</translation>
    </message>
    <message>
        <source>paused</source>
        <translation>paused</translation>
    </message>
    <message>
        <source>Filter: words in any column</source>
        <translation>Filter: words in any column</translation>
    </message>
    <message>
        <source>Pause</source>
        <translation>Pause</translation>
    </message>
    <message>
        <source>Clear</source>
        <translation>Clear</translation>
    </message>
    <message>
        <source>Copy</source>
        <translation>Copy</translation>
    </message>
</context>
<context>
    <name>QObject</name>
    <message>
        <source>accountOrMobile</source>
        <translation>Account or mobile number</translation>
    </message>
    <message>
        <source>addcon</source>
        <translation>Add contact</translation>
    </message>
    <message>
        <source>addcontactsfailed</source>
        <translation>The contact could not be added.</translation>
    </message>
    <message>
        <source>addfail</source>
        <translation>Adding failed. Please try again.</translation>
    </message>
    <message>
        <source>addfailreadd</source>
        <translation>Adding failed. Please try again.</translation>
    </message>
    <message>
        <source>addfriendslimited</source>
        <translation>Your contact list is full; no more can be added.</translation>
    </message>
    <message>
        <source>addgroupfailed</source>
        <translation>The group could not be created. Please try again.</translation>
    </message>
    <message>
        <source>addInviteCompany</source>
        <translation>Please select the company members to invite.</translation>
    </message>
    <message>
        <source>addMember</source>
        <translation>Add</translation>
    </message>
    <message>
        <source>addOutsideFriendslimited</source>
        <translation>You have reached the limit of external contacts.</translation>
    </message>
    <message>
        <source>addOutsideFriendslimited2</source>
        <translation>This person has reached the limit of external contacts.</translation>
    </message>
    <message>
        <source>addreply</source>
        <translation>The request has been sent. Please wait for the answer.</translation>
    </message>
    <message>
        <source>addService</source>
        <translation>Add service number</translation>
    </message>
    <message>
        <source>addsuccess</source>
        <translation>Added</translation>
    </message>
    <message>
        <source>addTeamGroupName</source>
        <translation>New sub-group</translation>
    </message>
    <message>
        <source>addTeamMember</source>
        <translation>Add members</translation>
    </message>
    <message>
        <source>addToBlacklist</source>
        <translation>Add to blacklist</translation>
    </message>
    <message>
        <source>addToContactList</source>
        <translation>Add to contact list</translation>
    </message>
    <message>
        <source>administrator</source>
        <translation>Administrator</translation>
    </message>
    <message>
        <source>agree</source>
        <translation>Agree</translation>
    </message>
    <message>
        <source>allowfriends</source>
        <translation> agrees to become your contact</translation>
    </message>
    <message>
        <source>back</source>
        <translation>Back</translation>
    </message>
    <message>
        <source>batDeleteTeamMembers</source>
        <translation>Delete members</translation>
    </message>
    <message>
        <source>batMoveTeamMembers</source>
        <translation>Move members</translation>
    </message>
    <message>
        <source>blacklistFailed</source>
        <translation>This person could not be put on the blacklist. Please try again.</translation>
    </message>
    <message>
        <source>cancel</source>
        <translation>Cancel</translation>
    </message>
    <message>
        <source>cancelGroupToppest</source>
        <translation>Unpin</translation>
    </message>
    <message>
        <source>cancelPersionAdmin</source>
        <translation>Remove as sub-administrator</translation>
    </message>
    <message>
        <source>cancelSubscribe</source>
        <translation>Unsubscribe</translation>
    </message>
    <message>
        <source>cancelSubscribeAsk</source>
        <translation>Unsubscribe from “%1”? You will get no more messages from it.</translation>
    </message>
    <message>
        <source>cancelSubscribeFailed</source>
        <translation>Unsubscribing failed. Please try again.</translation>
    </message>
    <message>
        <source>cannotChangeThemeForSelfOffLine</source>
        <translation>You are offline and cannot rename the group chat.</translation>
    </message>
    <message>
        <source>cannotSearchForOtherInfoForSelfOffLine</source>
        <translation>You are offline and cannot look up other people.</translation>
    </message>
    <message>
        <source>changemanage</source>
        <translation>Hand over management</translation>
    </message>
    <message>
        <source>changeRemark</source>
        <translation>Change remark</translation>
    </message>
    <message>
        <source>changeRemarkName</source>
        <translation>Change remark</translation>
    </message>
    <message>
        <source>channelClosed</source>
        <translation>Closed</translation>
    </message>
    <message>
        <source>channelOpen</source>
        <translation>Open</translation>
    </message>
    <message>
        <source>channelPinned</source>
        <translation>pinned</translation>
    </message>
    <message>
        <source>channelUnread</source>
        <translation>%1 unread</translation>
    </message>
    <message>
        <source>checkAccount</source>
        <translation>Please check the account or mobile number.</translation>
    </message>
    <message>
        <source>clearLatest</source>
        <translation>Clear recent contacts</translation>
    </message>
    <message>
        <source>clearSearch</source>
        <translation>Clear the search</translation>
    </message>
    <message>
        <source>clickToLookup</source>
        <translation>Click to view</translation>
    </message>
    <message>
        <source>close</source>
        <translation>Close</translation>
    </message>
    <message>
        <source>collapseAll</source>
        <translation>Collapse all</translation>
    </message>
    <message>
        <source>conatct</source>
        <translation>Contacts</translation>
    </message>
    <message>
        <source>confirmBlacklist</source>
        <translation>Put "%1" on the blacklist? This removes the person from your contacts, and you will get no more requests from them.</translation>
    </message>
    <message>
        <source>confirmClearLatest</source>
        <translation>Remove all conversations from the list? Messages are kept.</translation>
    </message>
    <message>
        <source>confirmDeleteContact</source>
        <translation>Delete the contact "%1"?</translation>
    </message>
    <message>
        <source>confirmDeleteContacts</source>
        <translation>Delete the %1 selected contacts?</translation>
    </message>
    <message>
        <source>confirmDeleteGroup</source>
        <translation>Delete the group "%1"? Its contacts move to "我的好友".</translation>
    </message>
    <message>
        <source>contactDetail</source>
        <translation>Contact profile</translation>
    </message>
    <message>
        <source>contactGroupMultiDeviceSynchronous</source>
        <translation>No group chats in the address book yet</translation>
    </message>
    <message>
        <source>contactsDeleted</source>
        <translation>Deleted contacts</translation>
    </message>
    <message>
        <source>cooperatingContact</source>
        <translation>Cooperating contact</translation>
    </message>
    <message>
        <source>copy</source>
        <translation>Copy</translation>
    </message>
    <message>
        <source>create</source>
        <translation>Create</translation>
    </message>
    <message>
        <source>createDesktopShortcut</source>
        <translation>Create desktop shortcut</translation>
    </message>
    <message>
        <source>createdulicatedteam</source>
        <translation>That name is reserved for a system group.</translation>
    </message>
    <message>
        <source>createexistedteam</source>
        <translation>There already is a group of that name. Please choose another.</translation>
    </message>
    <message>
        <source>createMuc</source>
        <translation>Start group chat</translation>
    </message>
    <message>
        <source>createVirtualTeam</source>
        <translation>Create virtual team</translation>
    </message>
    <message>
        <source>customer</source>
        <translation>Customer service</translation>
    </message>
    <message>
        <source>cutFrame</source>
        <translation>Part of the picture that is used</translation>
    </message>
    <message>
        <source>cutFrameKeys</source>
        <translation>Arrow keys move the frame, Ctrl and arrow keys resize it; with Shift in larger steps.</translation>
    </message>
    <message>
        <source>defaltInvitReasion</source>
        <translation>Please join our virtual team.</translation>
    </message>
    <message>
        <source>deleteContactFailed</source>
        <translation>"%1" could not be deleted. Please try again.</translation>
    </message>
    <message>
        <source>deleteFromContact</source>
        <translation>Remove from address book</translation>
    </message>
    <message>
        <source>deleteMyFriend</source>
        <translation>Delete friend</translation>
    </message>
    <message>
        <source>deleteOutsideFriendFailed</source>
        <translation>The external contact could not be deleted. Please try again.</translation>
    </message>
    <message>
        <source>deleteTeamGroupTip</source>
        <translation>Delete this group? Its sub-groups and all members in them leave the team.</translation>
    </message>
    <message>
        <source>deleteTeamMembers</source>
        <translation>Delete member</translation>
    </message>
    <message>
        <source>delFriend</source>
        <translation>Delete contact</translation>
    </message>
    <message>
        <source>delGroup</source>
        <translation>Delete group</translation>
    </message>
    <message>
        <source>delMuc</source>
        <translation>Delete group</translation>
    </message>
    <message>
        <source>department</source>
        <translation>Department</translation>
    </message>
    <message>
        <source>dismissmuc</source>
        <translation>Dissolve group chat</translation>
    </message>
    <message>
        <source>dismissTeam</source>
        <translation>Dissolve team</translation>
    </message>
    <message>
        <source>editNickName</source>
        <translation>Change nickname</translation>
    </message>
    <message>
        <source>editPicture</source>
        <translation>Edit picture</translation>
    </message>
    <message>
        <source>emailAddress</source>
        <translation>Email address</translation>
    </message>
    <message>
        <source>enterprisesCard</source>
        <translation>Business card</translation>
    </message>
    <message>
        <source>existVirtualTeam</source>
        <translation>Leave team</translation>
    </message>
    <message>
        <source>expandAll</source>
        <translation>Expand all</translation>
    </message>
    <message>
        <source>extensionNumber</source>
        <translation>Extension</translation>
    </message>
    <message>
        <source>failaddfrd</source>
        <translation>The contact request has failed.</translation>
    </message>
    <message>
        <source>filenotexistscannotmodify</source>
        <translation>The file does not exist or cannot be read; the picture was not changed.</translation>
    </message>
    <message>
        <source>fileTransfer</source>
        <translation>File transfer</translation>
    </message>
    <message>
        <source>filetype</source>
        <translation>Pictures (*.jpg *.jpeg *.png)</translation>
    </message>
    <message>
        <source>filterServiceNumbers</source>
        <translation>Filter subscriptions</translation>
    </message>
    <message>
        <source>forbidden</source>
        <translation>Muted</translation>
    </message>
    <message>
        <source>freshPersionInfo</source>
        <translation>Refresh people</translation>
    </message>
    <message>
        <source>friendsEmpty</source>
        <translation>No contacts yet</translation>
    </message>
    <message>
        <source>friendsFailed</source>
        <translation>The contacts could not be loaded</translation>
    </message>
    <message>
        <source>friendsLoading</source>
        <translation>Loading contacts…</translation>
    </message>
    <message>
        <source>getfriendsfailed</source>
        <translation>The external contacts could not be loaded. Please try again.</translation>
    </message>
    <message>
        <source>gettinginformation</source>
        <translation>Looking up this person…</translation>
    </message>
    <message>
        <source>groupChat</source>
        <translation>Group chats</translation>
    </message>
    <message>
        <source>groupNameColon</source>
        <translation>Group name:</translation>
    </message>
    <message>
        <source>hasLeft</source>
        <translation>Has left</translation>
    </message>
    <message>
        <source>historyFailed</source>
        <translation>The history could not be loaded. Please try again later.</translation>
    </message>
    <message>
        <source>historyInBrowser</source>
        <translation>The history was opened in the system’s browser.</translation>
    </message>
    <message>
        <source>iamsomebodywantadd</source>
        <translation>wants to add you as a contact</translation>
    </message>
    <message>
        <source>idNoExist</source>
        <translation>There is no such account.</translation>
    </message>
    <message>
        <source>inputNameIDTel</source>
        <translation>Name, employee code or mobile number</translation>
    </message>
    <message>
        <source>invitechat</source>
        <translation>Start chat</translation>
    </message>
    <message>
        <source>inviteCompany</source>
        <translation>Invite a company</translation>
    </message>
    <message>
        <source>invitedMembers</source>
        <translation>Invited members</translation>
    </message>
    <message>
        <source>inviteReasion</source>
        <translation>Reason (up to 100 characters)</translation>
    </message>
    <message>
        <source>inviteYouJoin</source>
        <translation>Invites you to join</translation>
    </message>
    <message>
        <source>inviteYourCompanyJoin</source>
        <translation>Invites your company to join</translation>
    </message>
    <message>
        <source>isOfflinePleaseLogin</source>
        <translation>You are offline. Please log in first.</translation>
    </message>
    <message>
        <source>kindChannel</source>
        <translation>Customer service</translation>
    </message>
    <message>
        <source>kindDepartment</source>
        <translation>Department</translation>
    </message>
    <message>
        <source>kindGroup</source>
        <translation>Contact group</translation>
    </message>
    <message>
        <source>kindPerson</source>
        <translation>Person</translation>
    </message>
    <message>
        <source>kindRoom</source>
        <translation>Group chat</translation>
    </message>
    <message>
        <source>kindServiceNumber</source>
        <translation>Service number</translation>
    </message>
    <message>
        <source>kindTeam</source>
        <translation>Virtual team</translation>
    </message>
    <message>
        <source>latestContact</source>
        <translation>Recent contacts</translation>
    </message>
    <message>
        <source>latestEmpty</source>
        <translation>No recent conversations</translation>
    </message>
    <message>
        <source>latestNotStored</source>
        <translation>The list of recent contacts could not be saved on this computer. Changes may be lost when the program ends.</translation>
    </message>
    <message>
        <source>leader</source>
        <translation>Reports to</translation>
    </message>
    <message>
        <source>listSeparator</source>
        <translation>, </translation>
    </message>
    <message>
        <source>loadErrorAndCrazyRetry</source>
        <translation>Loading failed. Click to try again</translation>
    </message>
    <message>
        <source>loading</source>
        <translation>Loading…</translation>
    </message>
    <message>
        <source>localDataDamaged</source>
        <translation>Your local data could not be read. They were kept as %1, and new ones were begun.</translation>
    </message>
    <message>
        <source>localGroup</source>
        <translation>Local</translation>
    </message>
    <message>
        <source>locateEntry</source>
        <translation>Locate</translation>
    </message>
    <message>
        <source>locateFound</source>
        <translation>Show in the list</translation>
    </message>
    <message>
        <source>locateInOrganisation</source>
        <translation>Show in the organisation</translation>
    </message>
    <message>
        <source>locateSelf</source>
        <translation>Locate myself</translation>
    </message>
    <message>
        <source>locateToMe</source>
        <translation>Show my place</translation>
    </message>
    <message>
        <source>location</source>
        <translation>Location</translation>
    </message>
    <message>
        <source>mayNotWrite</source>
        <translation>you may not write here</translation>
    </message>
    <message>
        <source>messageFile</source>
        <translation>[File]</translation>
    </message>
    <message>
        <source>messageLink</source>
        <translation>[Link]</translation>
    </message>
    <message>
        <source>messageLocation</source>
        <translation>[Location]</translation>
    </message>
    <message>
        <source>messageMerged</source>
        <translation>[Chat history]</translation>
    </message>
    <message>
        <source>messagePicture</source>
        <translation>[Picture]</translation>
    </message>
    <message>
        <source>messageRecalled</source>
        <translation>A message was taken back</translation>
    </message>
    <message>
        <source>messageRecalledBy</source>
        <translation>%1 took back a message</translation>
    </message>
    <message>
        <source>messageService</source>
        <translation>[Service message]</translation>
    </message>
    <message>
        <source>messageSetting</source>
        <translation>Notifications</translation>
    </message>
    <message>
        <source>messageSettingFailed</source>
        <translation>The notifications could not be set. Please try again.</translation>
    </message>
    <message>
        <source>messageUnknown</source>
        <translation>[Message of an unknown kind]</translation>
    </message>
    <message>
        <source>messageVoice</source>
        <translation>[Voice]</translation>
    </message>
    <message>
        <source>messageWorkGroup</source>
        <translation>[Customer service]</translation>
    </message>
    <message>
        <source>minimize</source>
        <translation>Minimize</translation>
    </message>
    <message>
        <source>mobileNumber</source>
        <translation>Mobile number</translation>
    </message>
    <message>
        <source>modifyGroupName</source>
        <translation>Rename group chat</translation>
    </message>
    <message>
        <source>modifyGroupNameFail</source>
        <translation>The group could not be renamed. Please try again.</translation>
    </message>
    <message>
        <source>modifyTeamGroupName</source>
        <translation>Rename group</translation>
    </message>
    <message>
        <source>moveTeamMembers</source>
        <translation>Move members</translation>
    </message>
    <message>
        <source>moveToGroup</source>
        <translation>Move to group</translation>
    </message>
    <message>
        <source>msgrecord</source>
        <translation>Message history</translation>
    </message>
    <message>
        <source>name</source>
        <translation>Name</translation>
    </message>
    <message>
        <source>newgroup</source>
        <translation>New group</translation>
    </message>
    <message>
        <source>noapp</source>
        <translation>No service numbers subscribed yet</translation>
    </message>
    <message>
        <source>NoAuthSubscrip</source>
        <translation>You may not subscribe to this service number.</translation>
    </message>
    <message>
        <source>nocustomer</source>
        <translation>No customer-service channels</translation>
    </message>
    <message>
        <source>nofrd_toadd</source>
        <translation>No external contacts yet. Add the first one</translation>
    </message>
    <message>
        <source>noMatch</source>
        <translation>No contact matches</translation>
    </message>
    <message>
        <source>notaddcontacts</source>
        <translation>You cannot add yourself as a contact.</translation>
    </message>
    <message>
        <source>notaddcontactslist</source>
        <translation>There is nobody to add.</translation>
    </message>
    <message>
        <source>notaddcontactslistwithunused</source>
        <translation>These accounts are not in use yet and cannot be added.</translation>
    </message>
    <message>
        <source>notaddduplicatecontacts</source>
        <translation>All of these people are your contacts already.</translation>
    </message>
    <message>
        <source>notaddwhite</source>
        <translation>This contact cannot be put on the white list.</translation>
    </message>
    <message>
        <source>notexecuteoperation</source>
        <translation>You are offline; this cannot be done now.</translation>
    </message>
    <message>
        <source>notgroupcall</source>
        <translation>A group call is not possible now.</translation>
    </message>
    <message>
        <source>notInENterprise</source>
        <translation>You do not belong to a company yet</translation>
    </message>
    <message>
        <source>notInOrganization</source>
        <translation>This person is not in the organization.</translation>
    </message>
    <message>
        <source>notmodify</source>
        <translation>Nothing has been changed.</translation>
    </message>
    <message>
        <source>notransferfile</source>
        <translation>Files cannot be sent to this person.</translation>
    </message>
    <message>
        <source>notSubscribed</source>
        <translation>Not subscribed</translation>
    </message>
    <message>
        <source>nottransferfilewithunusedaccount</source>
        <translation>This account is not in use yet; files cannot be sent to it.</translation>
    </message>
    <message>
        <source>noVirtualTeamTip</source>
        <translation>You have no virtual team yet</translation>
    </message>
    <message>
        <source>noVirtualTeamTip2</source>
        <translation>Create one to work with people of other departments and companies.</translation>
    </message>
    <message>
        <source>noVirtualTeamTip3</source>
        <translation>Its members are shown here in their groups.</translation>
    </message>
    <message>
        <source>offlineCannotAdd</source>
        <translation>You are offline and cannot add contacts.</translation>
    </message>
    <message>
        <source>offlineNoInviteMember</source>
        <translation>You are offline and cannot invite members.</translation>
    </message>
    <message>
        <source>onlyShowOnlineUser</source>
        <translation>Show online contacts only</translation>
    </message>
    <message>
        <source>openChat</source>
        <translation>Open chat</translation>
    </message>
    <message>
        <source>openFound</source>
        <translation>Open</translation>
    </message>
    <message>
        <source>openOrClose</source>
        <translation>Expand or collapse</translation>
    </message>
    <message>
        <source>openOutsidePage</source>
        <translation>Open a page of %1 in the system’s browser?</translation>
    </message>
    <message>
        <source>organizationTree</source>
        <translation>Organization</translation>
    </message>
    <message>
        <source>orgEmpty</source>
        <translation>The organization has no departments yet</translation>
    </message>
    <message>
        <source>orgLinkFailed</source>
        <translation>The page cannot be opened. Please try again later.</translation>
    </message>
    <message>
        <source>orgLocating</source>
        <translation>Locating…</translation>
    </message>
    <message>
        <source>OrgNotPremissionText</source>
        <translation>You may not view the organization</translation>
    </message>
    <message>
        <source>orgRefreshFailed</source>
        <translation>Loading failed. Please try again later.</translation>
    </message>
    <message>
        <source>orgStructureManage</source>
        <translation>Manage the organization</translation>
    </message>
    <message>
        <source>orgWidgetLoading</source>
        <translation>Loading the organization…</translation>
    </message>
    <message>
        <source>outfrdaccept</source>
        <translation>Accept</translation>
    </message>
    <message>
        <source>outsideAdd</source>
        <translation>Add</translation>
    </message>
    <message>
        <source>outsideAdded</source>
        <translation>Added</translation>
    </message>
    <message>
        <source>outsidefrd</source>
        <translation>External contacts</translation>
    </message>
    <message>
        <source>outsideRequested</source>
        <translation>Requested</translation>
    </message>
    <message>
        <source>outsideRequestTitle</source>
        <translation>Contact request</translation>
    </message>
    <message>
        <source>outsideSearchBox</source>
        <translation>Name, account or mobile number</translation>
    </message>
    <message>
        <source>outsideSearchFailed</source>
        <translation>The search failed. Please try again.</translation>
    </message>
    <message>
        <source>outsideSearchHint</source>
        <translation>Find people outside your company: type a name, an account or a mobile number</translation>
    </message>
    <message>
        <source>outsideSearchShort</source>
        <translation>Please type at least two characters</translation>
    </message>
    <message>
        <source>outsideSearchTitle</source>
        <translation>Add external contact</translation>
    </message>
    <message>
        <source>ownProfile</source>
        <translation>My profile</translation>
    </message>
    <message>
        <source>ownProfileUnknown</source>
        <translation>Your profile has not arrived yet. Please try again in a moment.</translation>
    </message>
    <message>
        <source>pembateam</source>
        <translation>Product team</translation>
    </message>
    <message>
        <source>persionnalAcountConnotAdd</source>
        <translation>Personal accounts cannot join a virtual team.</translation>
    </message>
    <message>
        <source>personalNumber</source>
        <translation>Personal number</translation>
    </message>
    <message>
        <source>pickMembers</source>
        <translation>Search by account or mobile number and add at least two members.</translation>
    </message>
    <message>
        <source>pickOtherCompanies</source>
        <translation>Search for members of other companies by account or mobile number and add them.</translation>
    </message>
    <message>
        <source>pictureNotStored</source>
        <translation>The picture could not be stored on this computer.</translation>
    </message>
    <message>
        <source>pictureTooLarge</source>
        <translation>The picture is too large: no side may be longer than 8192 pixels, the file no larger than 64 MB.</translation>
    </message>
    <message>
        <source>pinned</source>
        <translation>pinned</translation>
    </message>
    <message>
        <source>position</source>
        <translation>Position</translation>
    </message>
    <message>
        <source>presenceAway</source>
        <translation>Away</translation>
    </message>
    <message>
        <source>presenceChat</source>
        <translation>Free to chat</translation>
    </message>
    <message>
        <source>presenceDnd</source>
        <translation>Do not disturb</translation>
    </message>
    <message>
        <source>presenceMobile</source>
        <translation>Online on mobile</translation>
    </message>
    <message>
        <source>presenceOffline</source>
        <translation>Offline</translation>
    </message>
    <message>
        <source>presenceOnline</source>
        <translation>Online</translation>
    </message>
    <message>
        <source>presenceXa</source>
        <translation>Away for long</translation>
    </message>
    <message>
        <source>productName</source>
        <translation>Enterprise Messenger</translation>
    </message>
    <message>
        <source>quitfiletransfer</source>
        <translation>A file transfer is running and will be cancelled. Continue?</translation>
    </message>
    <message>
        <source>quitmuc</source>
        <translation>Leave group chat</translation>
    </message>
    <message>
        <source>readd</source>
        <translation>Add again</translation>
    </message>
    <message>
        <source>recipients50SendSub</source>
        <translation>There are more than 50 recipients. Please send in parts.</translation>
    </message>
    <message>
        <source>recivenoremind</source>
        <translation>Receive without notifying</translation>
    </message>
    <message>
        <source>reciveremind</source>
        <translation>Receive and notify</translation>
    </message>
    <message>
        <source>refresh</source>
        <translation>Refresh</translation>
    </message>
    <message>
        <source>refreshFriendList</source>
        <translation>Refresh contact list</translation>
    </message>
    <message>
        <source>refreshServiceNumbersFailed</source>
        <translation>The list may be out of date.</translation>
    </message>
    <message>
        <source>refreshTeamsFailed</source>
        <translation>Refreshing failed: this may be out of date.</translation>
    </message>
    <message>
        <source>refreshVirtualTeam</source>
        <translation>Refresh the teams</translation>
    </message>
    <message>
        <source>refuse</source>
        <translation>Decline</translation>
    </message>
    <message>
        <source>refusefriends</source>
        <translation> accepts no contact requests</translation>
    </message>
    <message>
        <source>registerEnterprise</source>
        <translation>Register a company</translation>
    </message>
    <message>
        <source>remark</source>
        <translation>Remark</translation>
    </message>
    <message>
        <source>remarkColon</source>
        <translation>Remark:</translation>
    </message>
    <message>
        <source>removeDesktopShortcut</source>
        <translation>Remove desktop shortcut</translation>
    </message>
    <message>
        <source>removeLatest</source>
        <translation>Remove from list</translation>
    </message>
    <message>
        <source>removeMember</source>
        <translation>Remove</translation>
    </message>
    <message>
        <source>renameMuc</source>
        <translation>Rename group</translation>
    </message>
    <message>
        <source>restore</source>
        <translation>Restore</translation>
    </message>
    <message>
        <source>retry</source>
        <translation>Try again</translation>
    </message>
    <message>
        <source>roomforbidden</source>
        <translation>you cannot write here</translation>
    </message>
    <message>
        <source>saveToAddresslist</source>
        <translation>Save to address book</translation>
    </message>
    <message>
        <source>searchFailed</source>
        <translation>The company could not be searched.</translation>
    </message>
    <message>
        <source>searchNothing</source>
        <translation>Nothing found</translation>
    </message>
    <message>
        <source>searchOffline</source>
        <translation>Offline: only what is stored here is searched.</translation>
    </message>
    <message>
        <source>searchSearching</source>
        <translation>Searching…</translation>
    </message>
    <message>
        <source>searchServiceNumbers</source>
        <translation>Search service numbers</translation>
    </message>
    <message>
        <source>searchServiceNumbersFailed</source>
        <translation>The service numbers could not be searched.</translation>
    </message>
    <message>
        <source>searchSomeTeamsFailed</source>
        <translation>Some teams could not be searched.</translation>
    </message>
    <message>
        <source>searchTeamMembers</source>
        <translation>Search team members</translation>
    </message>
    <message>
        <source>searchTeamsFailed</source>
        <translation>The teams could not be searched.</translation>
    </message>
    <message>
        <source>searchTooMuch</source>
        <translation>Too many searches. Please try again in a moment.</translation>
    </message>
    <message>
        <source>search…</source>
        <translation>Search…</translation>
    </message>
    <message>
        <source>selectpic</source>
        <translation>Choose a picture</translation>
    </message>
    <message>
        <source>sendCustomerMessage</source>
        <translation>Send message</translation>
    </message>
    <message>
        <source>sendemail</source>
        <translation>Send email</translation>
    </message>
    <message>
        <source>sendFile</source>
        <translation>Send file</translation>
    </message>
    <message>
        <source>sendGroupMessage</source>
        <translation>Send message</translation>
    </message>
    <message>
        <source>sendOutsideRequest</source>
        <translation>Send request</translation>
    </message>
    <message>
        <source>serviceChatNeedsSubscription</source>
        <translation>Subscribe to open the chat.</translation>
    </message>
    <message>
        <source>serviceContact</source>
        <translation>Contact</translation>
    </message>
    <message>
        <source>serviceDescription</source>
        <translation>Description</translation>
    </message>
    <message>
        <source>serviceDetail</source>
        <translation>Service number</translation>
    </message>
    <message>
        <source>serviceNoChat</source>
        <translation>Open chat</translation>
    </message>
    <message>
        <source>serviceOneWay</source>
        <translation>This service number only publishes; it takes no replies.</translation>
    </message>
    <message>
        <source>serviceSubject</source>
        <translation>Subject</translation>
    </message>
    <message>
        <source>setAdmin</source>
        <translation>Sub-administrators</translation>
    </message>
    <message>
        <source>setGroupToppest</source>
        <translation>Pin to top</translation>
    </message>
    <message>
        <source>setPersionAdmin</source>
        <translation>Make sub-administrator</translation>
    </message>
    <message>
        <source>setting</source>
        <translation>Settings</translation>
    </message>
    <message>
        <source>showhistory</source>
        <translation>Show history</translation>
    </message>
    <message>
        <source>showlocalgroup</source>
        <translation>No local group chats yet</translation>
    </message>
    <message>
        <source>subscribe</source>
        <translation>Subscribe</translation>
    </message>
    <message>
        <source>subscribed</source>
        <translation>Subscribed</translation>
    </message>
    <message>
        <source>subscribeFailed</source>
        <translation>Subscribing failed. Please try again.</translation>
    </message>
    <message>
        <source>sure</source>
        <translation>OK</translation>
    </message>
    <message>
        <source>sureCancelAdmin</source>
        <translation>Remove this member as sub-administrator?</translation>
    </message>
    <message>
        <source>sureDeleteTeamMember</source>
        <translation>Delete this member?</translation>
    </message>
    <message>
        <source>sureExistTeam</source>
        <translation>Leave this team?</translation>
    </message>
    <message>
        <source>sureSetAdmin</source>
        <translation>Make this member a sub-administrator?</translation>
    </message>
    <message>
        <source>sureToDismissTheGroup</source>
        <translation>Dissolve this group chat?</translation>
    </message>
    <message>
        <source>sureToSignOutTheGroup</source>
        <translation>Leave this group chat?</translation>
    </message>
    <message>
        <source>sureTransAuth</source>
        <translation>Hand over the management?</translation>
    </message>
    <message>
        <source>sureTransAuthTip</source>
        <translation>You become an ordinary member afterwards.</translation>
    </message>
    <message>
        <source>teamAgreed</source>
        <translation>Agreed</translation>
    </message>
    <message>
        <source>teamApproval</source>
        <translation>Team approval</translation>
    </message>
    <message>
        <source>teamBusy</source>
        <translation>The team is being changed at the moment. Please try again.</translation>
    </message>
    <message>
        <source>teamChangeFailed</source>
        <translation>That did not work. Please try again.</translation>
    </message>
    <message>
        <source>teamChooseGroup</source>
        <translation>Choose a group for the members (%1).</translation>
    </message>
    <message>
        <source>teamChooseOwner</source>
        <translation>Choose who is to manage the team.</translation>
    </message>
    <message>
        <source>teamChosen</source>
        <translation>Chosen: %1</translation>
    </message>
    <message>
        <source>teamChosenCount</source>
        <translation>%1 chosen</translation>
    </message>
    <message>
        <source>teamCompany</source>
        <translation>Company</translation>
    </message>
    <message>
        <source>teamCountMoreTwo</source>
        <translation>Please select at least two members.</translation>
    </message>
    <message>
        <source>teamcreatefailed</source>
        <translation>The group could not be created. Please try again.</translation>
    </message>
    <message>
        <source>teamCreator</source>
        <translation>Created by</translation>
    </message>
    <message>
        <source>teamDecided</source>
        <translation>This request has been decided already.</translation>
    </message>
    <message>
        <source>teamexisted</source>
        <translation>That group exists already.</translation>
    </message>
    <message>
        <source>teamGroupEmpty</source>
        <translation>No members here</translation>
    </message>
    <message>
        <source>teamInviter</source>
        <translation>Invited by</translation>
    </message>
    <message>
        <source>teamMemberCount</source>
        <translation>Members: %1</translation>
    </message>
    <message>
        <source>teamMemberNotFound</source>
        <translation>This person could not be found in the team.</translation>
    </message>
    <message>
        <source>teamMembers</source>
        <translation>Members</translation>
    </message>
    <message>
        <source>teamMembersHere</source>
        <translation>The members are here already.</translation>
    </message>
    <message>
        <source>teamMembersNotAdded</source>
        <translation>People who could not be added: %1</translation>
    </message>
    <message>
        <source>teamName</source>
        <translation>Team name</translation>
    </message>
    <message>
        <source>teamNameNotempty</source>
        <translation>The team name must not be empty.</translation>
    </message>
    <message>
        <source>teamnotcreate</source>
        <translation>You are offline and cannot create a group.</translation>
    </message>
    <message>
        <source>teamnotempty</source>
        <translation>The group name must not be empty.</translation>
    </message>
    <message>
        <source>teamOwner</source>
        <translation>Owner</translation>
    </message>
    <message>
        <source>teamReason</source>
        <translation>Reason</translation>
    </message>
    <message>
        <source>teamRefused</source>
        <translation>Declined</translation>
    </message>
    <message>
        <source>teamRequestGone</source>
        <translation>This request does not exist any more.</translation>
    </message>
    <message>
        <source>teamSubAdministrator</source>
        <translation>Sub-admin</translation>
    </message>
    <message>
        <source>teamWorking</source>
        <translation>One moment…</translation>
    </message>
    <message>
        <source>tip</source>
        <translation>Notice</translation>
    </message>
    <message>
        <source>toTopCustomer</source>
        <translation>Pin to top</translation>
    </message>
    <message>
        <source>transAuth</source>
        <translation>Hand over management</translation>
    </message>
    <message>
        <source>typeerrorcannotmodify</source>
        <translation>This is not a complete JPG or PNG picture; the picture was not changed.</translation>
    </message>
    <message>
        <source>unreadMessages</source>
        <translation>%1 unread</translation>
    </message>
    <message>
        <source>uploadFail</source>
        <translation>The upload failed. Please try again.</translation>
    </message>
    <message>
        <source>uploadingPicture</source>
        <translation>Uploading…</translation>
    </message>
    <message>
        <source>userHadAdded</source>
        <translation>This member is selected already.</translation>
    </message>
    <message>
        <source>validationLimit</source>
        <translation>At most 20 characters; a Chinese one counts two</translation>
    </message>
    <message>
        <source>viewdetail</source>
        <translation>View profile</translation>
    </message>
    <message>
        <source>virtemModGrpName</source>
        <translation>Rename team</translation>
    </message>
    <message>
        <source>virtemModPostName</source>
        <translation>Change position</translation>
    </message>
    <message>
        <source>virtualTeamCreateFail</source>
        <translation>The team could not be created. Please try again.</translation>
    </message>
    <message>
        <source>virtualTeamCreateFailReasion1</source>
        <translation>The team was not created: its name or its members are not allowed.</translation>
    </message>
    <message>
        <source>virtualTeamCreateFailReasion2</source>
        <translation>The team was not created: you have a team of that name already.</translation>
    </message>
    <message>
        <source>virtualTeamCreateSuccess</source>
        <translation>The team is created.</translation>
    </message>
    <message>
        <source>virtualTeamCreateSuccessAndWait</source>
        <translation>The team is created and waits for approval.</translation>
    </message>
    <message>
        <source>virtualTeamInviteFail</source>
        <translation>The invitation failed. Please try again.</translation>
    </message>
    <message>
        <source>virtualTeamInviteFail1</source>
        <translation>The invitation failed: only members of other companies can be invited.</translation>
    </message>
    <message>
        <source>virtualTeamInviteFail2</source>
        <translation>The invitation failed: you may not invite, or the company has joined already.</translation>
    </message>
    <message>
        <source>virtualTeamInviteSuccess</source>
        <translation>The invitation is sent.</translation>
    </message>
    <message>
        <source>virtureteam</source>
        <translation>Virtual teams</translation>
    </message>
    <message>
        <source>waitfriendsconfirm</source>
        <translation>This person confirms each request. Please introduce yourself.</translation>
    </message>
    <message>
        <source>welcomeuseim</source>
        <translation>Welcome to Enterprise Messenger</translation>
    </message>
    <message>
        <source>whiteexplane</source>
        <translation>Contacts on the white list can message you directly.</translation>
    </message>
    <message>
        <source>yesterday</source>
        <translation>Yesterday</translation>
    </message>
    <message>
        <source>yourImIsOffline</source>
        <translation>You are offline</translation>
    </message>
</context>
<context>
    <name>ChatArea</name>
    <message>
        <source>The message could not be sent.</source>
        <translation>The message could not be sent.</translation>
    </message>
    <message>
        <source>Reference host for FriendUI</source>
        <translation>Reference host for FriendUI</translation>
    </message>
    <message>
        <source>Choose a contact on the left to open a chat.
The people of the sample company come, go and answer by themselves; the event monitor (F12) shows what the plug-in and this host say to each other.</source>
        <translation>Choose a contact on the left to open a chat.
The people of the sample company come, go and answer by themselves; the event monitor (F12) shows what the plug-in and this host say to each other.</translation>
    </message>
</context>
<context>
    <name>ChatPage</name>
    <message>
        <source>A message holds at most %1 characters.</source>
        <translation>A message holds at most %1 characters.</translation>
    </message>
    <message>
        <source>no connection</source>
        <translation>no connection</translation>
    </message>
    <message>
        <source>%1 members</source>
        <translation>%1 members</translation>
    </message>
    <message>
        <source>Message; Enter sends, Shift+Enter begins a line</source>
        <translation>Message; Enter sends, Shift+Enter begins a line</translation>
    </message>
    <message>
        <source>No messages yet</source>
        <translation>No messages yet</translation>
    </message>
    <message>
        <source>Send</source>
        <translation>Send</translation>
    </message>
    <message>
        <source>%1 renamed the group chat.</source>
        <translation>%1 renamed the group chat.</translation>
    </message>
    <message>
        <source>Send a link</source>
        <translation>Send a link</translation>
    </message>
    <message>
        <source>Address</source>
        <translation>Address</translation>
    </message>
    <message>
        <source>This is no web address.</source>
        <translation>This is no web address.</translation>
    </message>
    <message>
        <source>You do not belong to this group chat</source>
        <translation>You do not belong to this group chat</translation>
    </message>
    <message>
        <source>You may not write in this group chat</source>
        <translation>You may not write in this group chat</translation>
    </message>
    <message>
        <source>no longer available</source>
        <translation>no longer available</translation>
    </message>
    <message>
        <source>open</source>
        <translation>open</translation>
    </message>
    <message>
        <source>closed now</source>
        <translation>closed now</translation>
    </message>
    <message>
        <source>File…</source>
        <translation>File…</translation>
    </message>
    <message>
        <source>Link…</source>
        <translation>Link…</translation>
    </message>
    <message>
        <source>This service number only sends messages; it takes none.</source>
        <translation>This service number only sends messages; it takes none.</translation>
    </message>
</context>
<context>
    <name>ChatView</name>
    <message>
        <source>(shortened)</source>
        <translation>(shortened)</translation>
    </message>
    <message>
        <source>Chat history</source>
        <translation>Chat history</translation>
    </message>
    <message>
        <source>Picture</source>
        <translation>Picture</translation>
    </message>
    <message>
        <source>File</source>
        <translation>File</translation>
    </message>
    <message>
        <source>Voice</source>
        <translation>Voice</translation>
    </message>
    <message>
        <source>Location</source>
        <translation>Location</translation>
    </message>
    <message>
        <source>Link</source>
        <translation>Link</translation>
    </message>
    <message>
        <source>Service message</source>
        <translation>Service message</translation>
    </message>
</context>
<context>
    <name>EventModel</name>
    <message>
        <source>→ plug-in</source>
        <translation>→ plug-in</translation>
    </message>
    <message>
        <source>← plug-in</source>
        <translation>← plug-in</translation>
    </message>
    <message>
        <source>Time</source>
        <translation>Time</translation>
    </message>
    <message>
        <source>Direction</source>
        <translation>Direction</translation>
    </message>
    <message>
        <source>Code</source>
        <translation>Code</translation>
    </message>
    <message>
        <source>Name</source>
        <translation>Name</translation>
    </message>
    <message>
        <source>Sender</source>
        <translation>Sender</translation>
    </message>
    <message>
        <source>Receiver</source>
        <translation>Receiver</translation>
    </message>
    <message>
        <source>Payload</source>
        <translation>Payload</translation>
    </message>
</context>
<context>
    <name>EventMonitor</name>
    <message>
        <source>%1 events</source>
        <translation>%1 events</translation>
    </message>
    <message>
        <source>%1 of %2 events</source>
        <translation>%1 of %2 events</translation>
    </message>
    <message>
        <source>every plug-in</source>
        <translation>every plug-in</translation>
    </message>
    <message>
        <source>%1 bytes</source>
        <translation>%1 bytes</translation>
    </message>
    <message>
        <source>Codes: 4118, 4356-4362</source>
        <translation>Codes: 4118, 4356-4362</translation>
    </message>
    <message>
        <source>Both directions</source>
        <translation>Both directions</translation>
    </message>
    <message>
        <source>To the plug-in</source>
        <translation>To the plug-in</translation>
    </message>
    <message>
        <source>From the plug-in</source>
        <translation>From the plug-in</translation>
    </message>
    <message>
        <source>Copy as JSON</source>
        <translation>Copy as JSON</translation>
    </message>
</context>
<context>
    <name>HistoryWindow</name>
    <message>
        <source>Message history: %1</source>
        <translation>Message history: %1</translation>
    </message>
    <message>
        <source>No messages yet</source>
        <translation>No messages yet</translation>
    </message>
</context>
<context>
    <name>HostApplication</name>
    <message>
        <source>The log file %1 cannot be written.</source>
        <translation>The log file %1 cannot be written.</translation>
    </message>
    <message>
        <source>The plug-in has no pane.</source>
        <translation>The plug-in has no pane.</translation>
    </message>
</context>
<context>
    <name>HostWindows</name>
    <message>
        <source>%1 asks to become a contact: %2</source>
        <translation>%1 asks to become a contact: %2</translation>
    </message>
    <message>
        <source>%1 refuses the contact request: %2</source>
        <translation>%1 refuses the contact request: %2</translation>
    </message>
    <message>
        <source>A chat was asked for without a jid.</source>
        <translation>A chat was asked for without a jid.</translation>
    </message>
    <message>
        <source>Send a file</source>
        <translation>Send a file</translation>
    </message>
    <message>
        <source>New group chat</source>
        <translation>New group chat</translation>
    </message>
    <message>
        <source>Subject</source>
        <translation>Subject</translation>
    </message>
    <message>
        <source>There is no file transfer with %1 to cancel.</source>
        <translation>There is no file transfer with %1 to cancel.</translation>
    </message>
    <message>
        <source>The conversation with %1 is pinned.</source>
        <translation>The conversation with %1 is pinned.</translation>
    </message>
    <message>
        <source>The conversation with %1 is no longer pinned.</source>
        <translation>The conversation with %1 is no longer pinned.</translation>
    </message>
    <message>
        <source>Topic page</source>
        <translation>Topic page</translation>
    </message>
    <message>
        <source>The plug-in that shows topic pages is not part of this host.</source>
        <translation>The plug-in that shows topic pages is not part of this host.</translation>
    </message>
    <message>
        <source>Add people to the team</source>
        <translation>Add people to the team</translation>
    </message>
    <message>
        <source>Write a mail</source>
        <translation>Write a mail</translation>
    </message>
    <message>
        <source>This host sends no mail. A client would now open a new mail to:</source>
        <translation>This host sends no mail. A client would now open a new mail to:</translation>
    </message>
    <message>
        <source>File transfers with %1 cancelled: %2</source>
        <translation>File transfers with %1 cancelled: %2</translation>
    </message>
    <message>
        <source>Folder</source>
        <translation>Folder</translation>
    </message>
    <message>
        <source>Name</source>
        <translation>Name</translation>
    </message>
    <message>
        <source>Kind</source>
        <translation>Kind</translation>
    </message>
    <message>
        <source>All files</source>
        <translation>All files</translation>
    </message>
    <message>
        <source>Send</source>
        <translation>Send</translation>
    </message>
    <message>
        <source>Cancel</source>
        <translation>Cancel</translation>
    </message>
</context>
<context>
    <name>ImportReport</name>
    <message>
        <source>Import of %1</source>
        <translation>Import of %1</translation>
    </message>
    <message>
        <source>Close</source>
        <translation>Close</translation>
    </message>
</context>
<context>
    <name>LeverMenu</name>
    <message>
        <source>Sorry, I do not know you.</source>
        <translation>Sorry, I do not know you.</translation>
    </message>
    <message>
        <source>People who are asked refuse</source>
        <translation>People who are asked refuse</translation>
    </message>
    <message>
        <source>Hello, we met at the fair.</source>
        <translation>Hello, we met at the fair.</translation>
    </message>
    <message>
        <source>&amp;Levers</source>
        <translation>&amp;Levers</translation>
    </message>
    <message>
        <source>Fail</source>
        <translation>Fail</translation>
    </message>
    <message>
        <source>Never answer</source>
        <translation>Never answer</translation>
    </message>
    <message>
        <source>Everything</source>
        <translation>Everything</translation>
    </message>
    <message>
        <source>People come, go and answer</source>
        <translation>People come, go and answer</translation>
    </message>
    <message>
        <source>Somebody writes now</source>
        <translation>Somebody writes now</translation>
    </message>
    <message>
        <source>Somebody asks to become a contact</source>
        <translation>Somebody asks to become a contact</translation>
    </message>
</context>
<context>
    <name>MainWindow</name>
    <message>
        <source>The core could not do: %1</source>
        <translation>The core could not do: %1</translation>
    </message>
    <message>
        <source>New message from %1</source>
        <translation>New message from %1</translation>
    </message>
    <message>
        <source>The plug-in sent %1; nothing in this host answers it.</source>
        <translation>The plug-in sent %1; nothing in this host answers it.</translation>
    </message>
    <message>
        <source>The plug-in sent %1 with an unreadable payload of %2 bytes.</source>
        <translation>The plug-in sent %1 with an unreadable payload of %2 bytes.</translation>
    </message>
    <message>
        <source>Go offline</source>
        <translation>Go offline</translation>
    </message>
    <message>
        <source>Go online</source>
        <translation>Go online</translation>
    </message>
    <message>
        <source>connected as %1</source>
        <translation>connected as %1</translation>
    </message>
    <message>
        <source>not connected</source>
        <translation>not connected</translation>
    </message>
    <message>
        <source>%1 contacts in %2 groups, %3 people online</source>
        <translation>%1 contacts in %2 groups, %3 people online</translation>
    </message>
    <message>
        <source>&amp;Session</source>
        <translation>&amp;Session</translation>
    </message>
    <message>
        <source>Presence</source>
        <translation>Presence</translation>
    </message>
    <message>
        <source>&amp;View</source>
        <translation>&amp;View</translation>
    </message>
    <message>
        <source>Language</source>
        <translation>Language</translation>
    </message>
    <message>
        <source>Skin</source>
        <translation>Skin</translation>
    </message>
    <message>
        <source>Quit</source>
        <translation>Quit</translation>
    </message>
    <message>
        <source>Light</source>
        <translation>Light</translation>
    </message>
    <message>
        <source>Dark</source>
        <translation>Dark</translation>
    </message>
    <message>
        <source>Event monitor</source>
        <translation>Event monitor</translation>
    </message>
    <message>
        <source>Tools</source>
        <translation>Tools</translation>
    </message>
    <message>
        <source>Try the web services again</source>
        <translation>Try the web services again</translation>
    </message>
    <message>
        <source>Events</source>
        <translation>Events</translation>
    </message>
    <message>
        <source>Web requests</source>
        <translation>Web requests</translation>
    </message>
    <message>
        <source>%1 (%2) - FriendUI reference host</source>
        <translation>%1 (%2) - FriendUI reference host</translation>
    </message>
    <message>
        <source>Notices</source>
        <translation>Notices</translation>
    </message>
    <message>
        <source>Notices (%1)</source>
        <translation>Notices (%1)</translation>
    </message>
</context>
<context>
    <name>PaneArea</name>
    <message>
        <source>Plug-in modules (*.so *.dll *.dylib)</source>
        <translation>Plug-in modules (*.so *.dll *.dylib)</translation>
    </message>
    <message>
        <source>The contacts could not be loaded</source>
        <translation>The contacts could not be loaded</translation>
    </message>
    <message>
        <source>Try again</source>
        <translation>Try again</translation>
    </message>
    <message>
        <source>Choose another module…</source>
        <translation>Choose another module…</translation>
    </message>
</context>
<context>
    <name>PeoplePicker</name>
    <message>
        <source>Find by name</source>
        <translation>Find by name</translation>
    </message>
    <message>
        <source>%1 chosen</source>
        <translation>%1 chosen</translation>
    </message>
    <message>
        <source>OK</source>
        <translation>OK</translation>
    </message>
    <message>
        <source>Cancel</source>
        <translation>Cancel</translation>
    </message>
</context>
<context>
    <name>PersonPictures</name>
    <message>
        <source>The services do not take the new picture; the profile was not stored.</source>
        <translation>The services do not take the new picture; the profile was not stored.</translation>
    </message>
</context>
<context>
    <name>PictureWindow</name>
    <message>
        <source>There is no picture of %1 that can be shown.</source>
        <translation>There is no picture of %1 that can be shown.</translation>
    </message>
</context>
<context>
    <name>PluginLoader</name>
    <message>
        <source>The file does not exist.</source>
        <translation>The file does not exist.</translation>
    </message>
    <message>
        <source>The file is no Qt plug-in.</source>
        <translation>The file is no Qt plug-in.</translation>
    </message>
    <message>
        <source>The plug-in implements another interface: %1.</source>
        <translation>The plug-in implements another interface: %1.</translation>
    </message>
    <message>
        <source>The plug-in's root object lacks the interface.</source>
        <translation>The plug-in's root object lacks the interface.</translation>
    </message>
</context>
<context>
    <name>PresenceWords</name>
    <message>
        <source>offline</source>
        <translation>offline</translation>
    </message>
    <message>
        <source>available</source>
        <translation>available</translation>
    </message>
    <message>
        <source>away</source>
        <translation>away</translation>
    </message>
    <message>
        <source>away for long</source>
        <translation>away for long</translation>
    </message>
    <message>
        <source>do not disturb</source>
        <translation>do not disturb</translation>
    </message>
    <message>
        <source>free for chat</source>
        <translation>free for chat</translation>
    </message>
    <message>
        <source>on the phone app</source>
        <translation>on the phone app</translation>
    </message>
</context>
<context>
    <name>RequestNote</name>
    <message>
        <source>… %1 more</source>
        <translation>… %1 more</translation>
    </message>
    <message>
        <source>Close</source>
        <translation>Close</translation>
    </message>
</context>
<context>
    <name>CoreStore</name>
    <message>
        <source>The data file was damaged. It was kept as %1, and a new one was begun.</source>
        <translation>The data file was damaged. It was kept as %1, and a new one was begun.</translation>
    </message>
</context>
<context>
    <name>ServiceLevers</name>
    <message>
        <source>A service number is added</source>
        <translation>A service number is added</translation>
    </message>
    <message>
        <source>Renamed %1</source>
        <translation>Renamed %1</translation>
    </message>
    <message>
        <source>A service number has another name</source>
        <translation>A service number has another name</translation>
    </message>
    <message>
        <source>A subscription succeeds</source>
        <translation>A subscription succeeds</translation>
    </message>
    <message>
        <source>A subscription is refused</source>
        <translation>A subscription is refused</translation>
    </message>
    <message>
        <source>A subscription ends</source>
        <translation>A subscription ends</translation>
    </message>
    <message>
        <source>A service number gets another icon</source>
        <translation>A service number gets another icon</translation>
    </message>
    <message>
        <source>There is something new.</source>
        <translation>There is something new.</translation>
    </message>
    <message>
        <source>A service number writes</source>
        <translation>A service number writes</translation>
    </message>
    <message>
        <source>There are no web services.</source>
        <translation>There are no web services.</translation>
    </message>
    <message>
        <source>Everybody outside the company is a contact already.</source>
        <translation>Everybody outside the company is a contact already.</translation>
    </message>
    <message>
        <source>Hello, we met at the fair.</source>
        <translation>Hello, we met at the fair.</translation>
    </message>
    <message>
        <source>The services refuse the request of %1: %2</source>
        <translation>The services refuse the request of %1: %2</translation>
    </message>
    <message>
        <source>Somebody of another company asks to become a contact</source>
        <translation>Somebody of another company asks to become a contact</translation>
    </message>
    <message>
        <source>Show a contact&apos;s card at the pointer</source>
        <translation>Show a contact&apos;s card at the pointer</translation>
    </message>
    <message>
        <source>Hide the card</source>
        <translation>Hide the card</translation>
    </message>
    <message>
        <source>Service numbers, people outside, card</source>
        <translation>Service numbers, people outside, card</translation>
    </message>
</context>
<context>
    <name>VCardImport</name>
    <message>
        <source>%1 contacts added, %2 updated, %3 unchanged, %4 cards left out.</source>
        <translation>Contacts added: %1, updated: %2, unchanged: %3. Cards left out: %4.</translation>
    </message>
    <message>
        <source>A card ends here that was never begun.</source>
        <translation>A card ends here that was never begun.</translation>
    </message>
    <message>
        <source>line %1: %2</source>
        <translation>line %1: %2</translation>
    </message>
    <message>
        <source>line %1: This card is the one of line %2 again; it was left out.</source>
        <translation>line %1: This card is the one of line %2 again; it was left out.</translation>
    </message>
    <message>
        <source>The contacts could not be stored.</source>
        <translation>The contacts could not be stored.</translation>
    </message>
    <message>
        <source>The file ends inside this card; it was left out.</source>
        <translation>The file ends inside this card; it was left out.</translation>
    </message>
    <message>
        <source>The file has more than %1 cards; the rest was left out.</source>
        <translation>The file has more than %1 cards; the rest was left out.</translation>
    </message>
    <message>
        <source>There are more problems than are listed.</source>
        <translation>There are more problems than are listed.</translation>
    </message>
    <message>
        <source>There is text outside a card; it was left out.</source>
        <translation>There is text outside a card; it was left out.</translation>
    </message>
    <message>
        <source>This card has more than %1 properties; it was left out.</source>
        <translation>This card has more than %1 properties; it was left out.</translation>
    </message>
    <message>
        <source>This card has no end; it was left out.</source>
        <translation>This card has no end; it was left out.</translation>
    </message>
    <message>
        <source>This card has no name; it was left out.</source>
        <translation>This card has no name; it was left out.</translation>
    </message>
    <message>
        <source>This is no vCard file: no card begins in it.</source>
        <translation>This is no vCard file: no card begins in it.</translation>
    </message>
    <message>
        <source>This line is no property of a card; it was left out.</source>
        <translation>This line is no property of a card; it was left out.</translation>
    </message>
</context>
<context>
    <name>BackendProcess</name>
    <message>
        <source>The back end did not answer within %1 s.</source>
        <translation>The back end did not answer within %1 s.</translation>
    </message>
    <message>
        <source>The back end %1 cannot be started: %2</source>
        <translation>The back end %1 cannot be started: %2</translation>
    </message>
    <message>
        <source>The back end writes something else than its address.</source>
        <translation>The back end writes something else than its address.</translation>
    </message>
    <message>
        <source>The back end crashed.</source>
        <translation>The back end crashed.</translation>
    </message>
    <message>
        <source>The back end ended with code %1.</source>
        <translation>The back end ended with code %1.</translation>
    </message>
    <message>
        <source>The back end serves without encryption; it is not used.</source>
        <translation>The back end serves without encryption; it is not used.</translation>
    </message>
    <message>
        <source>The back end's certificate %1 is missing.</source>
        <translation>The back end's certificate %1 is missing.</translation>
    </message>
    <message>
        <source>There is no password in %1.</source>
        <translation>There is no password in %1.</translation>
    </message>
</context>
<context>
    <name>ServiceAddressFile</name>
    <message>
        <source>The file %1 with the addresses of the web services cannot be written.</source>
        <translation>The file %1 with the addresses of the web services cannot be written.</translation>
    </message>
</context>
<context>
    <name>WebSession</name>
    <message>
        <source>The web services refuse the log-in of %1 (code %2).</source>
        <translation>The web services refuse the log-in of %1 (code %2).</translation>
    </message>
    <message>
        <source>There is no connection to the web services that can be trusted; the log tells why.</source>
        <translation>There is no connection to the web services that can be trusted; the log tells why.</translation>
    </message>
    <message>
        <source>The web services cannot be reached: %1</source>
        <translation>The web services cannot be reached: %1</translation>
    </message>
    <message>
        <source>The web services do not answer the log-in (status %1).</source>
        <translation>The web services do not answer the log-in (status %1).</translation>
    </message>
    <message>
        <source>The log-in to the web services has ended.</source>
        <translation>The log-in to the web services has ended.</translation>
    </message>
</context>
<context>
    <name>WebServices</name>
    <message>
        <source>There is no password for the web services.</source>
        <translation>There is no password for the web services.</translation>
    </message>
    <message>
        <source>web services: off</source>
        <translation>web services: off</translation>
    </message>
    <message>
        <source>web services: starting</source>
        <translation>web services: starting</translation>
    </message>
    <message>
        <source>web services: logging in</source>
        <translation>web services: logging in</translation>
    </message>
    <message>
        <source>web services: logged in</source>
        <translation>web services: logged in</translation>
    </message>
    <message>
        <source>web services: trying again</source>
        <translation>web services: trying again</translation>
    </message>
    <message>
        <source>web services: not available</source>
        <translation>web services: not available</translation>
    </message>
</context>
<context>
    <name>WebRequestModel</name>
    <message>
        <source>Time</source>
        <translation>Time</translation>
    </message>
    <message>
        <source>Method</source>
        <translation>Method</translation>
    </message>
    <message>
        <source>Status</source>
        <translation>Status</translation>
    </message>
    <message>
        <source>ms</source>
        <translation>ms</translation>
    </message>
    <message>
        <source>Bytes sent</source>
        <translation>Bytes sent</translation>
    </message>
    <message>
        <source>Bytes received</source>
        <translation>Bytes received</translation>
    </message>
    <message>
        <source>Address</source>
        <translation>Address</translation>
    </message>
    <message>
        <source>Error</source>
        <translation>Error</translation>
    </message>
</context>
<context>
    <name>WebMonitor</name>
    <message>
        <source>%1 requests</source>
        <translation>%1 requests</translation>
    </message>
    <message>
        <source>%1 of %2 requests</source>
        <translation>%1 of %2 requests</translation>
    </message>
    <message>
        <source>Web requests</source>
        <translation>Web requests</translation>
    </message>
</context>
<context>
    <name>ChatLevers</name>
    <message>
        <source>There is no such group chat.</source>
        <translation>There is no such group chat.</translation>
    </message>
    <message>
        <source>You may no longer write in &quot;%1&quot;.</source>
        <translation>You may no longer write in &quot;%1&quot;.</translation>
    </message>
    <message>
        <source>You may write in &quot;%1&quot; again.</source>
        <translation>You may write in &quot;%1&quot; again.</translation>
    </message>
    <message>
        <source>I have made a group chat for us.</source>
        <translation>I have made a group chat for us.</translation>
    </message>
    <message>
        <source>Somebody has come into &quot;%1&quot;.</source>
        <translation>Somebody has come into &quot;%1&quot;.</translation>
    </message>
    <message>
        <source>Somebody writes in a group chat</source>
        <translation>Somebody writes in a group chat</translation>
    </message>
    <message>
        <source>Forbid writing in a group chat</source>
        <translation>Forbid writing in a group chat</translation>
    </message>
    <message>
        <source>Allow writing in a group chat again</source>
        <translation>Allow writing in a group chat again</translation>
    </message>
    <message>
        <source>Somebody renames a group chat</source>
        <translation>Somebody renames a group chat</translation>
    </message>
    <message>
        <source>Renamed %1</source>
        <translation>Renamed %1</translation>
    </message>
    <message>
        <source>A group chat gets another picture</source>
        <translation>A group chat gets another picture</translation>
    </message>
    <message>
        <source>Somebody comes into a group chat</source>
        <translation>Somebody comes into a group chat</translation>
    </message>
    <message>
        <source>You are put out of a group chat</source>
        <translation>You are put out of a group chat</translation>
    </message>
    <message>
        <source>You no longer belong to &quot;%1&quot;.</source>
        <translation>You no longer belong to &quot;%1&quot;.</translation>
    </message>
    <message>
        <source>Somebody writes in a new group chat</source>
        <translation>Somebody writes in a new group chat</translation>
    </message>
    <message>
        <source>There is no channel.</source>
        <translation>There is no channel.</translation>
    </message>
    <message>
        <source>Remove a channel</source>
        <translation>Remove a channel</translation>
    </message>
    <message>
        <source>Add a channel again</source>
        <translation>Add a channel again</translation>
    </message>
    <message>
        <source>No channel was removed.</source>
        <translation>No channel was removed.</translation>
    </message>
    <message>
        <source>A channel gets another picture</source>
        <translation>A channel gets another picture</translation>
    </message>
    <message>
        <source>Show the channels</source>
        <translation>Show the channels</translation>
    </message>
    <message>
        <source>10,000 messages in up to 500 conversations</source>
        <translation>10,000 messages in up to 500 conversations</translation>
    </message>
    <message>
        <source>Group chats, channels, messages</source>
        <translation>Group chats, channels, messages</translation>
    </message>
</context>
<context>
    <name>RoomManagement</name>
    <message>
        <source>%1 (owner)</source>
        <translation>%1 (owner)</translation>
    </message>
    <message>
        <source>%1 (manager)</source>
        <translation>%1 (manager)</translation>
    </message>
    <message>
        <source>You own this group chat.</source>
        <translation>You own this group chat.</translation>
    </message>
    <message>
        <source>You are one of the managers.</source>
        <translation>You are one of the managers.</translation>
    </message>
    <message>
        <source>You are a member.</source>
        <translation>You are a member.</translation>
    </message>
    <message>
        <source>No longer manager</source>
        <translation>No longer manager</translation>
    </message>
    <message>
        <source>Make manager</source>
        <translation>Make manager</translation>
    </message>
    <message>
        <source>Hand over the group chat</source>
        <translation>Hand over the group chat</translation>
    </message>
    <message>
        <source>%1 will own the group chat, and you will be a member. Only the new owner can undo this.</source>
        <translation>%1 will own the group chat, and you will be a member. Only the new owner can undo this.</translation>
    </message>
    <message>
        <source>Hand over</source>
        <translation>Hand over</translation>
    </message>
    <message>
        <source>Cancel</source>
        <translation>Cancel</translation>
    </message>
    <message>
        <source>Add people to the group chat</source>
        <translation>Add people to the group chat</translation>
    </message>
    <message>
        <source>Group chat: %1</source>
        <translation>Group chat: %1</translation>
    </message>
    <message>
        <source>Hand over…</source>
        <translation>Hand over…</translation>
    </message>
    <message>
        <source>Remove</source>
        <translation>Remove</translation>
    </message>
    <message>
        <source>Add people…</source>
        <translation>Add people…</translation>
    </message>
    <message>
        <source>Close</source>
        <translation>Close</translation>
    </message>
</context>
<context>
    <name>TransferStatus</name>
    <message>
        <source>Sending %1 to %2</source>
        <translation>Sending %1 to %2</translation>
    </message>
    <message>
        <source>Sending %1 files</source>
        <translation>Sending %1 files</translation>
    </message>
    <message>
        <source>Cancel</source>
        <translation>Cancel</translation>
    </message>
</context>
<context>
    <name>BackendSource</name>
    <message>
        <source>%1 It is started once more.</source>
        <translation>%1 It is started once more.</translation>
    </message>
    <message>
        <source>The host whose back end was used has ended.</source>
        <translation>The host whose back end was used has ended.</translation>
    </message>
    <message>
        <source>There is no host whose back end could be used; it is waited for.</source>
        <translation>There is no host whose back end could be used; it is waited for.</translation>
    </message>
</context>
<context>
    <name>BackendNotice</name>
    <message>
        <source>The file %1, by which other hosts find the back end, cannot be written.</source>
        <translation>The file %1, by which other hosts find the back end, cannot be written.</translation>
    </message>
</context>
<context>
    <name>Notices</name>
    <message>
        <source>Notices</source>
        <translation>Notices</translation>
    </message>
    <message>
        <source>Add as contact</source>
        <translation>Add as contact</translation>
    </message>
    <message>
        <source>Decide</source>
        <translation>Decide</translation>
    </message>
    <message>
        <source>Ignore</source>
        <translation>Ignore</translation>
    </message>
</context>
<context>
    <name>TeamNews</name>
    <message>
        <source>asks for your approval of the team “%1”</source>
        <translation>asks for your approval of the team “%1”</translation>
    </message>
    <message>
        <source>invites your company into the team “%1”</source>
        <translation>invites your company into the team “%1”</translation>
    </message>
    <message>
        <source>%1 has agreed: team “%2”</source>
        <translation>%1 has agreed: team “%2”</translation>
    </message>
    <message>
        <source>%1 has refused: team “%2”</source>
        <translation>%1 has refused: team “%2”</translation>
    </message>
</context>
<context>
    <name>CompanyLevers</name>
    <message>
        <source>The company&apos;s settings could not be read or changed.</source>
        <translation>The company&apos;s settings could not be read or changed.</translation>
    </message>
    <message>
        <source>Virtual teams of the company</source>
        <translation>Virtual teams of the company</translation>
    </message>
    <message>
        <source>New teams need approval</source>
        <translation>New teams need approval</translation>
    </message>
    <message>
        <source>Nobody approves them</source>
        <translation>Nobody approves them</translation>
    </message>
    <message>
        <source>Approved by %1 (%2)</source>
        <translation>Approved by %1 (%2)</translation>
    </message>
    <message>
        <source>Approve them myself</source>
        <translation>Approve them myself</translation>
    </message>
    <message>
        <source>Let a colleague approve them…</source>
        <translation>Let a colleague approve them…</translation>
    </message>
    <message>
        <source>Who approves new teams</source>
        <translation>Who approves new teams</translation>
    </message>
</context>
</TS>
