<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="zh_CN" sourcelanguage="en">
<context>
    <name>ExternalNews</name>
    <message>
        <source>%1 of %2</source>
        <translation>%2 的 %1</translation>
    </message>
    <message>
        <source>asks to become an external contact: %1</source>
        <translation>请求成为外部联系人：%1</translation>
    </message>
</context>
<context>
    <name>ExternalRoster</name>
    <message>
        <source>The remark could not be stored.</source>
        <translation>备注未能保存。</translation>
    </message>
</context>
<context>
    <name>MonitorPanel</name>
    <message>
        <source>%1 older ones dropped</source>
        <translation>已丢弃较早的 %1 个</translation>
    </message>
    <message>
        <source>paused</source>
        <translation>已暂停</translation>
    </message>
    <message>
        <source>Filter: words in any column</source>
        <translation>筛选：任意列中的词</translation>
    </message>
    <message>
        <source>Pause</source>
        <translation>暂停</translation>
    </message>
    <message>
        <source>Clear</source>
        <translation>清空</translation>
    </message>
    <message>
        <source>Copy</source>
        <translation>复制</translation>
    </message>
</context>
<context>
    <name>QObject</name>
    <message>
        <source>accountOrMobile</source>
        <translation>输入账号或手机号</translation>
    </message>
    <message>
        <source>addcon</source>
        <translation>添加联系人</translation>
    </message>
    <message>
        <source>addcontactsfailed</source>
        <translation>添加联系人失败。</translation>
    </message>
    <message>
        <source>addfail</source>
        <translation>添加失败，请重试！</translation>
    </message>
    <message>
        <source>addfailreadd</source>
        <translation>添加失败，请重新添加。</translation>
    </message>
    <message>
        <source>addfriendslimited</source>
        <translation>联系人数量已达上限，不能再添加。</translation>
    </message>
    <message>
        <source>addgroupfailed</source>
        <translation>新建分组失败，请重试！</translation>
    </message>
    <message>
        <source>addInviteCompany</source>
        <translation>请选择要邀请的企业成员。</translation>
    </message>
    <message>
        <source>addMember</source>
        <translation>添加</translation>
    </message>
    <message>
        <source>addOutsideFriendslimited</source>
        <translation>您的外部联系人数量已达上限。</translation>
    </message>
    <message>
        <source>addOutsideFriendslimited2</source>
        <translation>对方的外部联系人数量已达上限。</translation>
    </message>
    <message>
        <source>addreply</source>
        <translation>请求已发送，请等待对方确认。</translation>
    </message>
    <message>
        <source>addService</source>
        <translation>添加服务号</translation>
    </message>
    <message>
        <source>addsuccess</source>
        <translation>添加成功</translation>
    </message>
    <message>
        <source>addTeamGroupName</source>
        <translation>新建子分组</translation>
    </message>
    <message>
        <source>addTeamMember</source>
        <translation>添加成员</translation>
    </message>
    <message>
        <source>addToBlacklist</source>
        <translation>加入黑名单</translation>
    </message>
    <message>
        <source>addToContactList</source>
        <translation>添加到联系人列表</translation>
    </message>
    <message>
        <source>administrator</source>
        <translation>管理员</translation>
    </message>
    <message>
        <source>agree</source>
        <translation>同意</translation>
    </message>
    <message>
        <source>allowfriends</source>
        <translation>同意添加为联系人</translation>
    </message>
    <message>
        <source>back</source>
        <translation>返回</translation>
    </message>
    <message>
        <source>batDeleteTeamMembers</source>
        <translation>批量删除成员</translation>
    </message>
    <message>
        <source>batMoveTeamMembers</source>
        <translation>批量移动成员</translation>
    </message>
    <message>
        <source>blacklistFailed</source>
        <translation>加入黑名单失败，请重试。</translation>
    </message>
    <message>
        <source>cancel</source>
        <translation>取消</translation>
    </message>
    <message>
        <source>cancelGroupToppest</source>
        <translation>取消置顶</translation>
    </message>
    <message>
        <source>cancelPersionAdmin</source>
        <translation>取消子管理员</translation>
    </message>
    <message>
        <source>cancelSubscribe</source>
        <translation>取消订阅</translation>
    </message>
    <message>
        <source>cancelSubscribeAsk</source>
        <translation>取消订阅后将不再收到“%1”的消息，确定取消吗？</translation>
    </message>
    <message>
        <source>cancelSubscribeFailed</source>
        <translation>取消订阅失败，请重试。</translation>
    </message>
    <message>
        <source>cannotChangeThemeForSelfOffLine</source>
        <translation>您已离线，不能修改讨论组名称。</translation>
    </message>
    <message>
        <source>cannotSearchForOtherInfoForSelfOffLine</source>
        <translation>您已离线，不能查看他人资料。</translation>
    </message>
    <message>
        <source>changemanage</source>
        <translation>转让管理权</translation>
    </message>
    <message>
        <source>changeRemark</source>
        <translation>修改备注</translation>
    </message>
    <message>
        <source>changeRemarkName</source>
        <translation>修改备注名</translation>
    </message>
    <message>
        <source>channelClosed</source>
        <translation>休息中</translation>
    </message>
    <message>
        <source>channelOpen</source>
        <translation>营业中</translation>
    </message>
    <message>
        <source>channelPinned</source>
        <translation>已置顶</translation>
    </message>
    <message>
        <source>channelUnread</source>
        <translation>%1条未读</translation>
    </message>
    <message>
        <source>checkAccount</source>
        <translation>请检查账号或手机号是否正确。</translation>
    </message>
    <message>
        <source>clearLatest</source>
        <translation>清空最近联系人</translation>
    </message>
    <message>
        <source>clearSearch</source>
        <translation>清除搜索</translation>
    </message>
    <message>
        <source>clickToLookup</source>
        <translation>点击查看</translation>
    </message>
    <message>
        <source>close</source>
        <translation>关闭</translation>
    </message>
    <message>
        <source>collapseAll</source>
        <translation>全部收起</translation>
    </message>
    <message>
        <source>conatct</source>
        <translation>联系人</translation>
    </message>
    <message>
        <source>confirmBlacklist</source>
        <translation>确定将“%1”加入黑名单吗？对方会从联系人中移除，之后不会再收到对方的请求。</translation>
    </message>
    <message>
        <source>confirmClearLatest</source>
        <translation>确定清空最近联系人列表吗？聊天记录会保留。</translation>
    </message>
    <message>
        <source>confirmDeleteContact</source>
        <translation>确定删除联系人“%1”吗？</translation>
    </message>
    <message>
        <source>confirmDeleteContacts</source>
        <translation>确定删除选中的 %1 位联系人吗？</translation>
    </message>
    <message>
        <source>confirmDeleteGroup</source>
        <translation>确定删除分组“%1”吗？其中的联系人会移到“我的好友”。</translation>
    </message>
    <message>
        <source>contactDetail</source>
        <translation>联系人资料</translation>
    </message>
    <message>
        <source>contactGroupMultiDeviceSynchronous</source>
        <translation>通讯录中还没有讨论组</translation>
    </message>
    <message>
        <source>contactsDeleted</source>
        <translation>已删除的联系人</translation>
    </message>
    <message>
        <source>cooperatingContact</source>
        <translation>协作联系人</translation>
    </message>
    <message>
        <source>copy</source>
        <translation>复制</translation>
    </message>
    <message>
        <source>create</source>
        <translation>创建</translation>
    </message>
    <message>
        <source>createDesktopShortcut</source>
        <translation>创建桌面快捷方式</translation>
    </message>
    <message>
        <source>createdulicatedteam</source>
        <translation>不能使用系统分组的名称。</translation>
    </message>
    <message>
        <source>createexistedteam</source>
        <translation>分组名称已存在，请使用其他名称。</translation>
    </message>
    <message>
        <source>createMuc</source>
        <translation>创建讨论组</translation>
    </message>
    <message>
        <source>createVirtualTeam</source>
        <translation>创建虚拟团队</translation>
    </message>
    <message>
        <source>customer</source>
        <translation>客服</translation>
    </message>
    <message>
        <source>cutFrame</source>
        <translation>使用的图片区域</translation>
    </message>
    <message>
        <source>cutFrameKeys</source>
        <translation>方向键移动裁剪框，Ctrl+方向键调整大小，加 Shift 幅度更大。</translation>
    </message>
    <message>
        <source>defaltInvitReasion</source>
        <translation>邀请您加入我们的虚拟团队，一起协作。</translation>
    </message>
    <message>
        <source>deleteContactFailed</source>
        <translation>删除“%1”失败，请重试！</translation>
    </message>
    <message>
        <source>deleteFromContact</source>
        <translation>从通讯录移除</translation>
    </message>
    <message>
        <source>deleteMyFriend</source>
        <translation>删除好友</translation>
    </message>
    <message>
        <source>deleteOutsideFriendFailed</source>
        <translation>删除外部联系人失败，请重试！</translation>
    </message>
    <message>
        <source>deleteTeamGroupTip</source>
        <translation>确定删除该分组吗？其中的子分组和成员将一并移出团队。</translation>
    </message>
    <message>
        <source>deleteTeamMembers</source>
        <translation>删除成员</translation>
    </message>
    <message>
        <source>delFriend</source>
        <translation>删除联系人</translation>
    </message>
    <message>
        <source>delGroup</source>
        <translation>删除分组</translation>
    </message>
    <message>
        <source>delMuc</source>
        <translation>删除分组</translation>
    </message>
    <message>
        <source>department</source>
        <translation>部门</translation>
    </message>
    <message>
        <source>dismissmuc</source>
        <translation>解散讨论组</translation>
    </message>
    <message>
        <source>dismissTeam</source>
        <translation>解散团队</translation>
    </message>
    <message>
        <source>editNickName</source>
        <translation>修改昵称</translation>
    </message>
    <message>
        <source>editPicture</source>
        <translation>修改头像</translation>
    </message>
    <message>
        <source>emailAddress</source>
        <translation>邮箱</translation>
    </message>
    <message>
        <source>enterprisesCard</source>
        <translation>企业名片</translation>
    </message>
    <message>
        <source>existVirtualTeam</source>
        <translation>退出团队</translation>
    </message>
    <message>
        <source>expandAll</source>
        <translation>全部展开</translation>
    </message>
    <message>
        <source>extensionNumber</source>
        <translation>分机</translation>
    </message>
    <message>
        <source>failaddfrd</source>
        <translation>添加好友失败。</translation>
    </message>
    <message>
        <source>filenotexistscannotmodify</source>
        <translation>文件不存在或无法读取，头像未修改。</translation>
    </message>
    <message>
        <source>fileTransfer</source>
        <translation>文件传输</translation>
    </message>
    <message>
        <source>filetype</source>
        <translation>图片文件 (*.jpg *.jpeg *.png)</translation>
    </message>
    <message>
        <source>filterServiceNumbers</source>
        <translation>筛选已订阅的服务号</translation>
    </message>
    <message>
        <source>forbidden</source>
        <translation>消息免打扰</translation>
    </message>
    <message>
        <source>freshPersionInfo</source>
        <translation>刷新人员信息</translation>
    </message>
    <message>
        <source>friendsEmpty</source>
        <translation>还没有联系人</translation>
    </message>
    <message>
        <source>friendsFailed</source>
        <translation>联系人加载失败</translation>
    </message>
    <message>
        <source>friendsLoading</source>
        <translation>正在加载联系人…</translation>
    </message>
    <message>
        <source>getfriendsfailed</source>
        <translation>获取外部联系人失败，请重试。</translation>
    </message>
    <message>
        <source>gettinginformation</source>
        <translation>正在获取对方资料，请稍候…</translation>
    </message>
    <message>
        <source>groupChat</source>
        <translation>讨论组</translation>
    </message>
    <message>
        <source>groupNameColon</source>
        <translation>分组名称：</translation>
    </message>
    <message>
        <source>hasLeft</source>
        <translation>已离职</translation>
    </message>
    <message>
        <source>historyFailed</source>
        <translation>历史消息加载失败，请稍后重试</translation>
    </message>
    <message>
        <source>historyInBrowser</source>
        <translation>历史消息已在系统浏览器中打开</translation>
    </message>
    <message>
        <source>iamsomebodywantadd</source>
        <translation>请求添加您为好友</translation>
    </message>
    <message>
        <source>idNoExist</source>
        <translation>该账号不存在。</translation>
    </message>
    <message>
        <source>inputNameIDTel</source>
        <translation>输入姓名、工号或手机号</translation>
    </message>
    <message>
        <source>invitechat</source>
        <translation>发起会话</translation>
    </message>
    <message>
        <source>inviteCompany</source>
        <translation>邀请外企业</translation>
    </message>
    <message>
        <source>invitedMembers</source>
        <translation>受邀成员</translation>
    </message>
    <message>
        <source>inviteReasion</source>
        <translation>请输入邀请理由（100字以内）</translation>
    </message>
    <message>
        <source>inviteYouJoin</source>
        <translation>邀请您加入</translation>
    </message>
    <message>
        <source>inviteYourCompanyJoin</source>
        <translation>邀请贵企业加入</translation>
    </message>
    <message>
        <source>isOfflinePleaseLogin</source>
        <translation>您已离线，请先登录。</translation>
    </message>
    <message>
        <source>kindChannel</source>
        <translation>客服频道</translation>
    </message>
    <message>
        <source>kindDepartment</source>
        <translation>部门</translation>
    </message>
    <message>
        <source>kindGroup</source>
        <translation>联系人分组</translation>
    </message>
    <message>
        <source>kindPerson</source>
        <translation>联系人</translation>
    </message>
    <message>
        <source>kindRoom</source>
        <translation>讨论组</translation>
    </message>
    <message>
        <source>kindServiceNumber</source>
        <translation>服务号</translation>
    </message>
    <message>
        <source>kindTeam</source>
        <translation>虚拟团队</translation>
    </message>
    <message>
        <source>latestContact</source>
        <translation>最近联系人</translation>
    </message>
    <message>
        <source>latestEmpty</source>
        <translation>还没有最近的会话</translation>
    </message>
    <message>
        <source>latestNotStored</source>
        <translation>最近联系人列表无法保存到本机，程序退出后改动可能丢失。</translation>
    </message>
    <message>
        <source>leader</source>
        <translation>负责人</translation>
    </message>
    <message>
        <source>listSeparator</source>
        <translation>、</translation>
    </message>
    <message>
        <source>loadErrorAndCrazyRetry</source>
        <translation>加载失败，点击重试</translation>
    </message>
    <message>
        <source>loading</source>
        <translation>正在加载…</translation>
    </message>
    <message>
        <source>localDataDamaged</source>
        <translation>本地数据已损坏，原文件已保存为 %1，并已新建数据文件。</translation>
    </message>
    <message>
        <source>localGroup</source>
        <translation>本地讨论组</translation>
    </message>
    <message>
        <source>locateEntry</source>
        <translation>定位</translation>
    </message>
    <message>
        <source>locateFound</source>
        <translation>在列表中定位</translation>
    </message>
    <message>
        <source>locateInOrganisation</source>
        <translation>定位到组织架构</translation>
    </message>
    <message>
        <source>locateSelf</source>
        <translation>定位到自己</translation>
    </message>
    <message>
        <source>locateToMe</source>
        <translation>定位到我</translation>
    </message>
    <message>
        <source>location</source>
        <translation>位置</translation>
    </message>
    <message>
        <source>mayNotWrite</source>
        <translation>已被禁言</translation>
    </message>
    <message>
        <source>messageFile</source>
        <translation>[文件]</translation>
    </message>
    <message>
        <source>messageLink</source>
        <translation>[链接]</translation>
    </message>
    <message>
        <source>messageLocation</source>
        <translation>[位置]</translation>
    </message>
    <message>
        <source>messageMerged</source>
        <translation>[聊天记录]</translation>
    </message>
    <message>
        <source>messagePicture</source>
        <translation>[图片]</translation>
    </message>
    <message>
        <source>messageRecalled</source>
        <translation>消息已撤回</translation>
    </message>
    <message>
        <source>messageRecalledBy</source>
        <translation>%1撤回了一条消息</translation>
    </message>
    <message>
        <source>messageService</source>
        <translation>[服务消息]</translation>
    </message>
    <message>
        <source>messageSetting</source>
        <translation>消息设置</translation>
    </message>
    <message>
        <source>messageSettingFailed</source>
        <translation>消息设置未能保存，请重试。</translation>
    </message>
    <message>
        <source>messageUnknown</source>
        <translation>[暂不支持的消息]</translation>
    </message>
    <message>
        <source>messageVoice</source>
        <translation>[语音]</translation>
    </message>
    <message>
        <source>messageWorkGroup</source>
        <translation>[客服]</translation>
    </message>
    <message>
        <source>minimize</source>
        <translation>最小化</translation>
    </message>
    <message>
        <source>mobileNumber</source>
        <translation>手机号</translation>
    </message>
    <message>
        <source>modifyGroupName</source>
        <translation>修改讨论组名称</translation>
    </message>
    <message>
        <source>modifyGroupNameFail</source>
        <translation>修改分组名称失败，请重试。</translation>
    </message>
    <message>
        <source>modifyTeamGroupName</source>
        <translation>修改分组名称</translation>
    </message>
    <message>
        <source>moveTeamMembers</source>
        <translation>移动成员</translation>
    </message>
    <message>
        <source>moveToGroup</source>
        <translation>移动到分组</translation>
    </message>
    <message>
        <source>msgrecord</source>
        <translation>消息记录</translation>
    </message>
    <message>
        <source>name</source>
        <translation>名称</translation>
    </message>
    <message>
        <source>newgroup</source>
        <translation>新建分组</translation>
    </message>
    <message>
        <source>noapp</source>
        <translation>还没有订阅服务号</translation>
    </message>
    <message>
        <source>NoAuthSubscrip</source>
        <translation>您没有权限订阅该服务号。</translation>
    </message>
    <message>
        <source>nocustomer</source>
        <translation>暂无客服</translation>
    </message>
    <message>
        <source>nofrd_toadd</source>
        <translation>还没有外部联系人，快去添加吧</translation>
    </message>
    <message>
        <source>noMatch</source>
        <translation>没有匹配的联系人</translation>
    </message>
    <message>
        <source>notaddcontacts</source>
        <translation>不能添加自己为联系人。</translation>
    </message>
    <message>
        <source>notaddcontactslist</source>
        <translation>没有可添加的联系人。</translation>
    </message>
    <message>
        <source>notaddcontactslistwithunused</source>
        <translation>所选人员的账号尚未启用，不能添加。</translation>
    </message>
    <message>
        <source>notaddduplicatecontacts</source>
        <translation>所选人员都已是您的联系人。</translation>
    </message>
    <message>
        <source>notaddwhite</source>
        <translation>不能添加到白名单。</translation>
    </message>
    <message>
        <source>notexecuteoperation</source>
        <translation>您已离线，不能执行此操作。</translation>
    </message>
    <message>
        <source>notgroupcall</source>
        <translation>当前无法发起群通话。</translation>
    </message>
    <message>
        <source>notInENterprise</source>
        <translation>您还没有加入企业</translation>
    </message>
    <message>
        <source>notInOrganization</source>
        <translation>该人员不在组织架构中。</translation>
    </message>
    <message>
        <source>notmodify</source>
        <translation>没有任何修改。</translation>
    </message>
    <message>
        <source>notransferfile</source>
        <translation>不能向该联系人发送文件。</translation>
    </message>
    <message>
        <source>notSubscribed</source>
        <translation>未订阅</translation>
    </message>
    <message>
        <source>nottransferfilewithunusedaccount</source>
        <translation>对方账号尚未启用，不能发送文件。</translation>
    </message>
    <message>
        <source>noVirtualTeamTip</source>
        <translation>您还没有虚拟团队</translation>
    </message>
    <message>
        <source>noVirtualTeamTip2</source>
        <translation>创建虚拟团队，与不同部门、不同企业的伙伴一起工作。</translation>
    </message>
    <message>
        <source>noVirtualTeamTip3</source>
        <translation>团队成员会在这里按分组显示。</translation>
    </message>
    <message>
        <source>offlineCannotAdd</source>
        <translation>您已离线，不能添加联系人。</translation>
    </message>
    <message>
        <source>offlineNoInviteMember</source>
        <translation>您已离线，不能邀请成员。</translation>
    </message>
    <message>
        <source>onlyShowOnlineUser</source>
        <translation>仅显示在线联系人</translation>
    </message>
    <message>
        <source>openChat</source>
        <translation>打开会话</translation>
    </message>
    <message>
        <source>openFound</source>
        <translation>打开</translation>
    </message>
    <message>
        <source>openOrClose</source>
        <translation>展开/收起</translation>
    </message>
    <message>
        <source>openOutsidePage</source>
        <translation>是否在系统浏览器中打开 %1 的页面？</translation>
    </message>
    <message>
        <source>organizationTree</source>
        <translation>组织架构</translation>
    </message>
    <message>
        <source>orgEmpty</source>
        <translation>组织架构中还没有部门</translation>
    </message>
    <message>
        <source>orgLinkFailed</source>
        <translation>页面无法打开，请稍后重试。</translation>
    </message>
    <message>
        <source>orgLocating</source>
        <translation>正在定位…</translation>
    </message>
    <message>
        <source>OrgNotPremissionText</source>
        <translation>您没有查看组织架构的权限</translation>
    </message>
    <message>
        <source>orgRefreshFailed</source>
        <translation>加载失败，请稍后重试。</translation>
    </message>
    <message>
        <source>orgStructureManage</source>
        <translation>组织架构管理</translation>
    </message>
    <message>
        <source>orgWidgetLoading</source>
        <translation>正在加载组织架构…</translation>
    </message>
    <message>
        <source>outfrdaccept</source>
        <translation>接受</translation>
    </message>
    <message>
        <source>outsideAdd</source>
        <translation>添加</translation>
    </message>
    <message>
        <source>outsideAdded</source>
        <translation>已添加</translation>
    </message>
    <message>
        <source>outsidefrd</source>
        <translation>外部联系人</translation>
    </message>
    <message>
        <source>outsideRequested</source>
        <translation>已申请</translation>
    </message>
    <message>
        <source>outsideRequestTitle</source>
        <translation>好友请求</translation>
    </message>
    <message>
        <source>outsideSearchBox</source>
        <translation>姓名、账号或手机号</translation>
    </message>
    <message>
        <source>outsideSearchFailed</source>
        <translation>搜索失败，请重试。</translation>
    </message>
    <message>
        <source>outsideSearchHint</source>
        <translation>查找企业外的联系人：输入对方的姓名、账号或手机号</translation>
    </message>
    <message>
        <source>outsideSearchShort</source>
        <translation>请至少输入两个字符</translation>
    </message>
    <message>
        <source>outsideSearchTitle</source>
        <translation>添加好友</translation>
    </message>
    <message>
        <source>ownProfile</source>
        <translation>我的资料</translation>
    </message>
    <message>
        <source>ownProfileUnknown</source>
        <translation>尚未获取到您的资料，请稍后重试。</translation>
    </message>
    <message>
        <source>pembateam</source>
        <translation>产品团队</translation>
    </message>
    <message>
        <source>persionnalAcountConnotAdd</source>
        <translation>个人账号不能添加到虚拟团队。</translation>
    </message>
    <message>
        <source>personalNumber</source>
        <translation>个人号</translation>
    </message>
    <message>
        <source>pickMembers</source>
        <translation>按账号或手机号搜索，至少添加两名成员。</translation>
    </message>
    <message>
        <source>pickOtherCompanies</source>
        <translation>按账号或手机号搜索外企业成员并添加。</translation>
    </message>
    <message>
        <source>pictureNotStored</source>
        <translation>无法在本机保存图片。</translation>
    </message>
    <message>
        <source>pictureTooLarge</source>
        <translation>图片过大：边长不能超过 8192 像素，文件不能超过 64 MB。</translation>
    </message>
    <message>
        <source>pinned</source>
        <translation>已置顶</translation>
    </message>
    <message>
        <source>position</source>
        <translation>职位</translation>
    </message>
    <message>
        <source>presenceAway</source>
        <translation>离开</translation>
    </message>
    <message>
        <source>presenceChat</source>
        <translation>空闲可聊</translation>
    </message>
    <message>
        <source>presenceDnd</source>
        <translation>请勿打扰</translation>
    </message>
    <message>
        <source>presenceMobile</source>
        <translation>手机在线</translation>
    </message>
    <message>
        <source>presenceOffline</source>
        <translation>离线</translation>
    </message>
    <message>
        <source>presenceOnline</source>
        <translation>在线</translation>
    </message>
    <message>
        <source>presenceXa</source>
        <translation>长时间离开</translation>
    </message>
    <message>
        <source>productName</source>
        <translation>企业通讯</translation>
    </message>
    <message>
        <source>quitfiletransfer</source>
        <translation>正在传输文件，退出会中断传输。确定继续吗？</translation>
    </message>
    <message>
        <source>quitmuc</source>
        <translation>退出讨论组</translation>
    </message>
    <message>
        <source>readd</source>
        <translation>重新添加</translation>
    </message>
    <message>
        <source>recipients50SendSub</source>
        <translation>收件人超过 50 人，请分批发送。</translation>
    </message>
    <message>
        <source>recivenoremind</source>
        <translation>接收但不提醒</translation>
    </message>
    <message>
        <source>reciveremind</source>
        <translation>接收并提醒</translation>
    </message>
    <message>
        <source>refresh</source>
        <translation>刷新</translation>
    </message>
    <message>
        <source>refreshFriendList</source>
        <translation>刷新联系人列表</translation>
    </message>
    <message>
        <source>refreshServiceNumbersFailed</source>
        <translation>列表可能不是最新的。</translation>
    </message>
    <message>
        <source>refreshTeamsFailed</source>
        <translation>刷新失败，显示的可能不是最新内容。</translation>
    </message>
    <message>
        <source>refreshVirtualTeam</source>
        <translation>刷新虚拟团队</translation>
    </message>
    <message>
        <source>refuse</source>
        <translation>拒绝</translation>
    </message>
    <message>
        <source>refusefriends</source>
        <translation>拒绝任何人添加为联系人</translation>
    </message>
    <message>
        <source>registerEnterprise</source>
        <translation>注册企业</translation>
    </message>
    <message>
        <source>remark</source>
        <translation>备注</translation>
    </message>
    <message>
        <source>remarkColon</source>
        <translation>备注：</translation>
    </message>
    <message>
        <source>removeDesktopShortcut</source>
        <translation>删除桌面快捷方式</translation>
    </message>
    <message>
        <source>removeLatest</source>
        <translation>移除该会话</translation>
    </message>
    <message>
        <source>removeMember</source>
        <translation>移除</translation>
    </message>
    <message>
        <source>renameMuc</source>
        <translation>重命名分组</translation>
    </message>
    <message>
        <source>restore</source>
        <translation>还原</translation>
    </message>
    <message>
        <source>retry</source>
        <translation>重试</translation>
    </message>
    <message>
        <source>roomforbidden</source>
        <translation>禁言中</translation>
    </message>
    <message>
        <source>saveToAddresslist</source>
        <translation>保存到通讯录</translation>
    </message>
    <message>
        <source>searchFailed</source>
        <translation>搜索企业通讯录失败。</translation>
    </message>
    <message>
        <source>searchNothing</source>
        <translation>没有找到结果</translation>
    </message>
    <message>
        <source>searchOffline</source>
        <translation>当前离线，仅搜索本地数据。</translation>
    </message>
    <message>
        <source>searchSearching</source>
        <translation>正在搜索…</translation>
    </message>
    <message>
        <source>searchServiceNumbers</source>
        <translation>搜索服务号</translation>
    </message>
    <message>
        <source>searchServiceNumbersFailed</source>
        <translation>搜索服务号失败。</translation>
    </message>
    <message>
        <source>searchSomeTeamsFailed</source>
        <translation>部分团队搜索失败。</translation>
    </message>
    <message>
        <source>searchTeamMembers</source>
        <translation>搜索团队成员</translation>
    </message>
    <message>
        <source>searchTeamsFailed</source>
        <translation>搜索团队成员失败。</translation>
    </message>
    <message>
        <source>searchTooMuch</source>
        <translation>查询过于频繁，请稍后再试。</translation>
    </message>
    <message>
        <source>search…</source>
        <translation>搜索…</translation>
    </message>
    <message>
        <source>selectpic</source>
        <translation>选择图片</translation>
    </message>
    <message>
        <source>sendCustomerMessage</source>
        <translation>发送消息</translation>
    </message>
    <message>
        <source>sendemail</source>
        <translation>发送邮件</translation>
    </message>
    <message>
        <source>sendFile</source>
        <translation>发送文件</translation>
    </message>
    <message>
        <source>sendGroupMessage</source>
        <translation>发送消息</translation>
    </message>
    <message>
        <source>sendOutsideRequest</source>
        <translation>发送请求</translation>
    </message>
    <message>
        <source>serviceChatNeedsSubscription</source>
        <translation>订阅后才能进入会话。</translation>
    </message>
    <message>
        <source>serviceContact</source>
        <translation>联系方式</translation>
    </message>
    <message>
        <source>serviceDescription</source>
        <translation>简介</translation>
    </message>
    <message>
        <source>serviceDetail</source>
        <translation>服务号详情</translation>
    </message>
    <message>
        <source>serviceNoChat</source>
        <translation>进入会话</translation>
    </message>
    <message>
        <source>serviceOneWay</source>
        <translation>该服务号只发布消息，不接收回复。</translation>
    </message>
    <message>
        <source>serviceSubject</source>
        <translation>主题</translation>
    </message>
    <message>
        <source>setAdmin</source>
        <translation>设置子管理员</translation>
    </message>
    <message>
        <source>setGroupToppest</source>
        <translation>置顶</translation>
    </message>
    <message>
        <source>setPersionAdmin</source>
        <translation>设为子管理员</translation>
    </message>
    <message>
        <source>setting</source>
        <translation>设置</translation>
    </message>
    <message>
        <source>showhistory</source>
        <translation>查看历史消息</translation>
    </message>
    <message>
        <source>showlocalgroup</source>
        <translation>还没有本地讨论组</translation>
    </message>
    <message>
        <source>subscribe</source>
        <translation>订阅</translation>
    </message>
    <message>
        <source>subscribed</source>
        <translation>已订阅</translation>
    </message>
    <message>
        <source>subscribeFailed</source>
        <translation>订阅失败，请重试。</translation>
    </message>
    <message>
        <source>sure</source>
        <translation>确定</translation>
    </message>
    <message>
        <source>sureCancelAdmin</source>
        <translation>确定取消该子管理员吗？</translation>
    </message>
    <message>
        <source>sureDeleteTeamMember</source>
        <translation>确定删除该成员吗？</translation>
    </message>
    <message>
        <source>sureExistTeam</source>
        <translation>确定退出该团队吗？</translation>
    </message>
    <message>
        <source>sureSetAdmin</source>
        <translation>确定设为子管理员吗？</translation>
    </message>
    <message>
        <source>sureToDismissTheGroup</source>
        <translation>确定解散该讨论组吗？</translation>
    </message>
    <message>
        <source>sureToSignOutTheGroup</source>
        <translation>确定退出该讨论组吗？</translation>
    </message>
    <message>
        <source>sureTransAuth</source>
        <translation>确定移交管理权吗？</translation>
    </message>
    <message>
        <source>sureTransAuthTip</source>
        <translation>移交后，您将成为普通成员。</translation>
    </message>
    <message>
        <source>teamAgreed</source>
        <translation>已同意</translation>
    </message>
    <message>
        <source>teamApproval</source>
        <translation>虚拟团队审批</translation>
    </message>
    <message>
        <source>teamBusy</source>
        <translation>团队正在修改中，请稍后重试。</translation>
    </message>
    <message>
        <source>teamChangeFailed</source>
        <translation>操作失败，请重试。</translation>
    </message>
    <message>
        <source>teamChooseGroup</source>
        <translation>请选择要移入%1位成员的分组</translation>
    </message>
    <message>
        <source>teamChooseOwner</source>
        <translation>请选择新的管理者</translation>
    </message>
    <message>
        <source>teamChosen</source>
        <translation>已选择：%1</translation>
    </message>
    <message>
        <source>teamChosenCount</source>
        <translation>已选择%1人</translation>
    </message>
    <message>
        <source>teamCompany</source>
        <translation>企业</translation>
    </message>
    <message>
        <source>teamCountMoreTwo</source>
        <translation>请至少选择两名成员。</translation>
    </message>
    <message>
        <source>teamcreatefailed</source>
        <translation>创建分组失败，请重试！</translation>
    </message>
    <message>
        <source>teamCreator</source>
        <translation>创建人</translation>
    </message>
    <message>
        <source>teamDecided</source>
        <translation>该申请已处理。</translation>
    </message>
    <message>
        <source>teamexisted</source>
        <translation>该分组已存在。</translation>
    </message>
    <message>
        <source>teamGroupEmpty</source>
        <translation>没有成员信息</translation>
    </message>
    <message>
        <source>teamInviter</source>
        <translation>邀请人</translation>
    </message>
    <message>
        <source>teamMemberCount</source>
        <translation>%1人</translation>
    </message>
    <message>
        <source>teamMemberNotFound</source>
        <translation>未能在该团队中找到此人。</translation>
    </message>
    <message>
        <source>teamMembers</source>
        <translation>团队成员</translation>
    </message>
    <message>
        <source>teamMembersHere</source>
        <translation>成员已在此分组中</translation>
    </message>
    <message>
        <source>teamMembersNotAdded</source>
        <translation>有 %1 人未能添加。</translation>
    </message>
    <message>
        <source>teamName</source>
        <translation>团队名称</translation>
    </message>
    <message>
        <source>teamNameNotempty</source>
        <translation>团队名称不能为空。</translation>
    </message>
    <message>
        <source>teamnotcreate</source>
        <translation>您已离线，不能创建分组。</translation>
    </message>
    <message>
        <source>teamnotempty</source>
        <translation>分组名称不能为空。</translation>
    </message>
    <message>
        <source>teamOwner</source>
        <translation>所有者</translation>
    </message>
    <message>
        <source>teamReason</source>
        <translation>理由</translation>
    </message>
    <message>
        <source>teamRefused</source>
        <translation>已拒绝</translation>
    </message>
    <message>
        <source>teamRequestGone</source>
        <translation>该申请已不存在。</translation>
    </message>
    <message>
        <source>teamSubAdministrator</source>
        <translation>子管理员</translation>
    </message>
    <message>
        <source>teamWorking</source>
        <translation>正在处理…</translation>
    </message>
    <message>
        <source>tip</source>
        <translation>提示</translation>
    </message>
    <message>
        <source>toTopCustomer</source>
        <translation>置顶</translation>
    </message>
    <message>
        <source>transAuth</source>
        <translation>移交管理权</translation>
    </message>
    <message>
        <source>typeerrorcannotmodify</source>
        <translation>文件不是完整的 JPG 或 PNG 图片，头像未修改。</translation>
    </message>
    <message>
        <source>unreadMessages</source>
        <translation>%1 条未读</translation>
    </message>
    <message>
        <source>uploadFail</source>
        <translation>上传失败，请重试。</translation>
    </message>
    <message>
        <source>uploadingPicture</source>
        <translation>正在上传…</translation>
    </message>
    <message>
        <source>userHadAdded</source>
        <translation>该成员已添加。</translation>
    </message>
    <message>
        <source>validationLimit</source>
        <translation>最多20个字符，汉字按两个字符计算</translation>
    </message>
    <message>
        <source>viewdetail</source>
        <translation>查看资料</translation>
    </message>
    <message>
        <source>virtemModGrpName</source>
        <translation>修改团队名称</translation>
    </message>
    <message>
        <source>virtemModPostName</source>
        <translation>修改岗位</translation>
    </message>
    <message>
        <source>virtualTeamCreateFail</source>
        <translation>创建虚拟团队失败，请重试。</translation>
    </message>
    <message>
        <source>virtualTeamCreateFailReasion1</source>
        <translation>创建失败：成员或团队名称不符合要求。</translation>
    </message>
    <message>
        <source>virtualTeamCreateFailReasion2</source>
        <translation>创建失败：您已有同名的虚拟团队。</translation>
    </message>
    <message>
        <source>virtualTeamCreateSuccess</source>
        <translation>虚拟团队创建成功。</translation>
    </message>
    <message>
        <source>virtualTeamCreateSuccessAndWait</source>
        <translation>创建成功，请等待审批。</translation>
    </message>
    <message>
        <source>virtualTeamInviteFail</source>
        <translation>邀请失败，请重试。</translation>
    </message>
    <message>
        <source>virtualTeamInviteFail1</source>
        <translation>邀请失败：只能邀请外企业成员。</translation>
    </message>
    <message>
        <source>virtualTeamInviteFail2</source>
        <translation>邀请失败：权限不够，或该企业已加入。</translation>
    </message>
    <message>
        <source>virtualTeamInviteSuccess</source>
        <translation>邀请已发送。</translation>
    </message>
    <message>
        <source>virtureteam</source>
        <translation>虚拟团队</translation>
    </message>
    <message>
        <source>waitfriendsconfirm</source>
        <translation>需要对方验证，请填写验证信息。</translation>
    </message>
    <message>
        <source>welcomeuseim</source>
        <translation>欢迎使用企业通讯</translation>
    </message>
    <message>
        <source>whiteexplane</source>
        <translation>白名单中的联系人可以直接给您发送消息。</translation>
    </message>
    <message>
        <source>yesterday</source>
        <translation>昨天</translation>
    </message>
    <message>
        <source>yourImIsOffline</source>
        <translation>您已离线</translation>
    </message>
</context>
<context>
    <name>ChatArea</name>
    <message>
        <source>The message could not be sent.</source>
        <translation>消息发送失败。</translation>
    </message>
    <message>
        <source>Reference host for FriendUI</source>
        <translation>FriendUI 参考宿主程序</translation>
    </message>
    <message>
        <source>Choose a contact on the left to open a chat.
The people of the sample company come, go and answer by themselves; the event monitor (F12) shows what the plug-in and this host say to each other.</source>
        <translation>在左侧选择联系人即可打开会话。
示例公司的同事会自行上线、离开并回复消息；事件监视器（F12）显示插件与宿主之间往来的全部事件。</translation>
    </message>
</context>
<context>
    <name>ChatPage</name>
    <message>
        <source>A message holds at most %1 characters.</source>
        <translation>一条消息最多 %1 个字符。</translation>
    </message>
    <message>
        <source>no connection</source>
        <translation>未连接</translation>
    </message>
    <message>
        <source>%1 members</source>
        <translation>%1 位成员</translation>
    </message>
    <message>
        <source>Message; Enter sends, Shift+Enter begins a line</source>
        <translation>输入消息，按 Enter 发送，Shift+Enter 换行</translation>
    </message>
    <message>
        <source>No messages yet</source>
        <translation>暂无消息</translation>
    </message>
    <message>
        <source>Send</source>
        <translation>发送</translation>
    </message>
    <message>
        <source>%1 renamed the group chat.</source>
        <translation>%1 修改了讨论组名称。</translation>
    </message>
    <message>
        <source>Send a link</source>
        <translation>发送链接</translation>
    </message>
    <message>
        <source>Address</source>
        <translation>网址</translation>
    </message>
    <message>
        <source>This is no web address.</source>
        <translation>这不是网址。</translation>
    </message>
    <message>
        <source>You do not belong to this group chat</source>
        <translation>您不在这个讨论组中</translation>
    </message>
    <message>
        <source>You may not write in this group chat</source>
        <translation>您在这个讨论组中已被禁言</translation>
    </message>
    <message>
        <source>no longer available</source>
        <translation>已不可用</translation>
    </message>
    <message>
        <source>open</source>
        <translation>服务中</translation>
    </message>
    <message>
        <source>closed now</source>
        <translation>非服务时间</translation>
    </message>
    <message>
        <source>File…</source>
        <translation>文件…</translation>
    </message>
    <message>
        <source>Link…</source>
        <translation>链接…</translation>
    </message>
    <message>
        <source>This service number only sends messages; it takes none.</source>
        <translation>此服务号只推送消息，不接收回复。</translation>
    </message>
</context>
<context>
    <name>ChatView</name>
    <message>
        <source>(shortened)</source>
        <translation>（已截短）</translation>
    </message>
    <message>
        <source>Chat history</source>
        <translation>聊天记录</translation>
    </message>
    <message>
        <source>Picture</source>
        <translation>图片</translation>
    </message>
    <message>
        <source>File</source>
        <translation>文件</translation>
    </message>
    <message>
        <source>Voice</source>
        <translation>语音</translation>
    </message>
    <message>
        <source>Location</source>
        <translation>位置</translation>
    </message>
    <message>
        <source>Link</source>
        <translation>链接</translation>
    </message>
    <message>
        <source>Service message</source>
        <translation>服务消息</translation>
    </message>
</context>
<context>
    <name>EventModel</name>
    <message>
        <source>→ plug-in</source>
        <translation>→ 插件</translation>
    </message>
    <message>
        <source>← plug-in</source>
        <translation>← 插件</translation>
    </message>
    <message>
        <source>Time</source>
        <translation>时间</translation>
    </message>
    <message>
        <source>Direction</source>
        <translation>方向</translation>
    </message>
    <message>
        <source>Code</source>
        <translation>代码</translation>
    </message>
    <message>
        <source>Name</source>
        <translation>名称</translation>
    </message>
    <message>
        <source>Sender</source>
        <translation>发送方</translation>
    </message>
    <message>
        <source>Receiver</source>
        <translation>接收方</translation>
    </message>
    <message>
        <source>Payload</source>
        <translation>内容</translation>
    </message>
</context>
<context>
    <name>EventMonitor</name>
    <message>
        <source>%1 events</source>
        <translation>%1 个事件</translation>
    </message>
    <message>
        <source>%1 of %2 events</source>
        <translation>%2 个事件中的 %1 个</translation>
    </message>
    <message>
        <source>every plug-in</source>
        <translation>所有插件</translation>
    </message>
    <message>
        <source>%1 bytes</source>
        <translation>%1 字节</translation>
    </message>
    <message>
        <source>Codes: 4118, 4356-4362</source>
        <translation>代码：4118, 4356-4362</translation>
    </message>
    <message>
        <source>Both directions</source>
        <translation>双向</translation>
    </message>
    <message>
        <source>To the plug-in</source>
        <translation>发往插件</translation>
    </message>
    <message>
        <source>From the plug-in</source>
        <translation>来自插件</translation>
    </message>
    <message>
        <source>Copy as JSON</source>
        <translation>复制为 JSON</translation>
    </message>
</context>
<context>
    <name>HistoryWindow</name>
    <message>
        <source>Message history: %1</source>
        <translation>消息记录：%1</translation>
    </message>
    <message>
        <source>No messages yet</source>
        <translation>暂无消息</translation>
    </message>
</context>
<context>
    <name>HostApplication</name>
    <message>
        <source>The log file %1 cannot be written.</source>
        <translation>日志文件 %1 无法写入。</translation>
    </message>
    <message>
        <source>The plug-in has no pane.</source>
        <translation>该插件没有界面。</translation>
    </message>
</context>
<context>
    <name>HostWindows</name>
    <message>
        <source>%1 asks to become a contact: %2</source>
        <translation>%1 请求添加你为联系人：%2</translation>
    </message>
    <message>
        <source>%1 refuses the contact request: %2</source>
        <translation>%1 拒绝了好友请求：%2</translation>
    </message>
    <message>
        <source>A chat was asked for without a jid.</source>
        <translation>收到了没有 jid 的会话请求。</translation>
    </message>
    <message>
        <source>Send a file</source>
        <translation>发送文件</translation>
    </message>
    <message>
        <source>New group chat</source>
        <translation>创建讨论组</translation>
    </message>
    <message>
        <source>Subject</source>
        <translation>讨论组名称</translation>
    </message>
    <message>
        <source>There is no file transfer with %1 to cancel.</source>
        <translation>与 %1 之间没有可取消的文件传输。</translation>
    </message>
    <message>
        <source>The conversation with %1 is pinned.</source>
        <translation>与 %1 的会话已置顶。</translation>
    </message>
    <message>
        <source>The conversation with %1 is no longer pinned.</source>
        <translation>与 %1 的会话已取消置顶。</translation>
    </message>
    <message>
        <source>Topic page</source>
        <translation>话题页</translation>
    </message>
    <message>
        <source>The plug-in that shows topic pages is not part of this host.</source>
        <translation>显示话题页的插件不在本宿主程序中。</translation>
    </message>
    <message>
        <source>Add people to the team</source>
        <translation>添加团队成员</translation>
    </message>
    <message>
        <source>Write a mail</source>
        <translation>写邮件</translation>
    </message>
    <message>
        <source>This host sends no mail. A client would now open a new mail to:</source>
        <translation>本宿主程序不发送邮件。正式客户端此时会新建邮件，收件人：</translation>
    </message>
    <message>
        <source>File transfers with %1 cancelled: %2</source>
        <translation>与 %1 的文件传输已取消：%2 个</translation>
    </message>
    <message>
        <source>Folder</source>
        <translation>文件夹</translation>
    </message>
    <message>
        <source>Name</source>
        <translation>文件名</translation>
    </message>
    <message>
        <source>Kind</source>
        <translation>类型</translation>
    </message>
    <message>
        <source>All files</source>
        <translation>所有文件</translation>
    </message>
    <message>
        <source>Send</source>
        <translation>发送</translation>
    </message>
    <message>
        <source>Cancel</source>
        <translation>取消</translation>
    </message>
</context>
<context>
    <name>ImportReport</name>
    <message>
        <source>Import of %1</source>
        <translation>导入 %1</translation>
    </message>
    <message>
        <source>Close</source>
        <translation>关闭</translation>
    </message>
</context>
<context>
    <name>LeverMenu</name>
    <message>
        <source>Sorry, I do not know you.</source>
        <translation>抱歉，我不认识你。</translation>
    </message>
    <message>
        <source>People who are asked refuse</source>
        <translation>收到请求的人一律拒绝</translation>
    </message>
    <message>
        <source>Hello, we met at the fair.</source>
        <translation>您好，我们在展会上见过面。</translation>
    </message>
    <message>
        <source>&amp;Levers</source>
        <translation>测试开关(&amp;L)</translation>
    </message>
    <message>
        <source>Fail</source>
        <translation>使失败</translation>
    </message>
    <message>
        <source>Never answer</source>
        <translation>不予答复</translation>
    </message>
    <message>
        <source>Everything</source>
        <translation>全部</translation>
    </message>
    <message>
        <source>People come, go and answer</source>
        <translation>同事自行上线、离开并回复</translation>
    </message>
    <message>
        <source>Somebody writes now</source>
        <translation>立即收到一条消息</translation>
    </message>
    <message>
        <source>Somebody asks to become a contact</source>
        <translation>立即收到一个好友请求</translation>
    </message>
</context>
<context>
    <name>MainWindow</name>
    <message>
        <source>The core could not do: %1</source>
        <translation>操作未成功：%1</translation>
    </message>
    <message>
        <source>New message from %1</source>
        <translation>%1 发来新消息</translation>
    </message>
    <message>
        <source>The plug-in sent %1; nothing in this host answers it.</source>
        <translation>插件发送了 %1，本宿主程序没有对应的处理。</translation>
    </message>
    <message>
        <source>The plug-in sent %1 with an unreadable payload of %2 bytes.</source>
        <translation>插件发送的 %1 内容无法读取（%2 字节）。</translation>
    </message>
    <message>
        <source>Go offline</source>
        <translation>下线</translation>
    </message>
    <message>
        <source>Go online</source>
        <translation>上线</translation>
    </message>
    <message>
        <source>connected as %1</source>
        <translation>已连接：%1</translation>
    </message>
    <message>
        <source>not connected</source>
        <translation>未连接</translation>
    </message>
    <message>
        <source>%1 contacts in %2 groups, %3 people online</source>
        <translation>%2 个分组，%1 位联系人，%3 人在线</translation>
    </message>
    <message>
        <source>&amp;Session</source>
        <translation>会话(&amp;S)</translation>
    </message>
    <message>
        <source>Presence</source>
        <translation>在线状态</translation>
    </message>
    <message>
        <source>&amp;View</source>
        <translation>视图(&amp;V)</translation>
    </message>
    <message>
        <source>Language</source>
        <translation>语言</translation>
    </message>
    <message>
        <source>Skin</source>
        <translation>皮肤</translation>
    </message>
    <message>
        <source>Quit</source>
        <translation>退出</translation>
    </message>
    <message>
        <source>Light</source>
        <translation>浅色</translation>
    </message>
    <message>
        <source>Dark</source>
        <translation>深色</translation>
    </message>
    <message>
        <source>Event monitor</source>
        <translation>事件监视器</translation>
    </message>
    <message>
        <source>Tools</source>
        <translation>工具栏</translation>
    </message>
    <message>
        <source>Try the web services again</source>
        <translation>重新连接网络服务</translation>
    </message>
    <message>
        <source>Events</source>
        <translation>事件</translation>
    </message>
    <message>
        <source>Web requests</source>
        <translation>网络请求</translation>
    </message>
    <message>
        <source>%1 (%2) - FriendUI reference host</source>
        <translation>%1（%2）- FriendUI 参考宿主程序</translation>
    </message>
    <message>
        <source>Notices</source>
        <translation>通知</translation>
    </message>
    <message>
        <source>Notices (%1)</source>
        <translation>通知（%1）</translation>
    </message>
</context>
<context>
    <name>PaneArea</name>
    <message>
        <source>Plug-in modules (*.so *.dll *.dylib)</source>
        <translation>插件模块 (*.so *.dll *.dylib)</translation>
    </message>
    <message>
        <source>The contacts could not be loaded</source>
        <translation>联系人界面加载失败</translation>
    </message>
    <message>
        <source>Try again</source>
        <translation>重试</translation>
    </message>
    <message>
        <source>Choose another module…</source>
        <translation>选择其他模块…</translation>
    </message>
</context>
<context>
    <name>PeoplePicker</name>
    <message>
        <source>Find by name</source>
        <translation>按姓名查找</translation>
    </message>
    <message>
        <source>%1 chosen</source>
        <translation>已选 %1 人</translation>
    </message>
    <message>
        <source>OK</source>
        <translation>确定</translation>
    </message>
    <message>
        <source>Cancel</source>
        <translation>取消</translation>
    </message>
</context>
<context>
    <name>PersonPictures</name>
    <message>
        <source>The services do not take the new picture; the profile was not stored.</source>
        <translation>服务未接受新头像，资料没有保存。</translation>
    </message>
</context>
<context>
    <name>PictureWindow</name>
    <message>
        <source>There is no picture of %1 that can be shown.</source>
        <translation>没有可以显示的 %1 的图片。</translation>
    </message>
</context>
<context>
    <name>PluginLoader</name>
    <message>
        <source>The file does not exist.</source>
        <translation>文件不存在。</translation>
    </message>
    <message>
        <source>The file is no Qt plug-in.</source>
        <translation>该文件不是 Qt 插件。</translation>
    </message>
    <message>
        <source>The plug-in implements another interface: %1.</source>
        <translation>该插件实现的是另一个接口：%1。</translation>
    </message>
    <message>
        <source>The plug-in's root object lacks the interface.</source>
        <translation>插件的根对象没有实现所需接口。</translation>
    </message>
</context>
<context>
    <name>PresenceWords</name>
    <message>
        <source>offline</source>
        <translation>离线</translation>
    </message>
    <message>
        <source>available</source>
        <translation>在线</translation>
    </message>
    <message>
        <source>away</source>
        <translation>离开</translation>
    </message>
    <message>
        <source>away for long</source>
        <translation>长时间离开</translation>
    </message>
    <message>
        <source>do not disturb</source>
        <translation>请勿打扰</translation>
    </message>
    <message>
        <source>free for chat</source>
        <translation>欢迎聊天</translation>
    </message>
    <message>
        <source>on the phone app</source>
        <translation>手机在线</translation>
    </message>
</context>
<context>
    <name>RequestNote</name>
    <message>
        <source>… %1 more</source>
        <translation>… 另有 %1 项</translation>
    </message>
    <message>
        <source>Close</source>
        <translation>关闭</translation>
    </message>
</context>
<context>
    <name>CoreStore</name>
    <message>
        <source>The data file was damaged. It was kept as %1, and a new one was begun.</source>
        <translation>数据文件已损坏，已保留为 %1，并新建了一个。</translation>
    </message>
</context>
<context>
    <name>ServiceLevers</name>
    <message>
        <source>A service number is added</source>
        <translation>新增一个服务号</translation>
    </message>
    <message>
        <source>Renamed %1</source>
        <translation>已改名 %1</translation>
    </message>
    <message>
        <source>A service number has another name</source>
        <translation>一个服务号改名</translation>
    </message>
    <message>
        <source>A subscription succeeds</source>
        <translation>订阅成功</translation>
    </message>
    <message>
        <source>A subscription is refused</source>
        <translation>订阅被拒绝</translation>
    </message>
    <message>
        <source>A subscription ends</source>
        <translation>取消订阅</translation>
    </message>
    <message>
        <source>A service number gets another icon</source>
        <translation>一个服务号更换图标</translation>
    </message>
    <message>
        <source>There is something new.</source>
        <translation>有新的内容。</translation>
    </message>
    <message>
        <source>A service number writes</source>
        <translation>一个服务号发来消息</translation>
    </message>
    <message>
        <source>There are no web services.</source>
        <translation>没有可用的网络服务。</translation>
    </message>
    <message>
        <source>Everybody outside the company is a contact already.</source>
        <translation>公司以外的人都已是联系人。</translation>
    </message>
    <message>
        <source>Hello, we met at the fair.</source>
        <translation>您好，我们在展会上见过面。</translation>
    </message>
    <message>
        <source>The services refuse the request of %1: %2</source>
        <translation>服务拒绝了 %1 的请求：%2</translation>
    </message>
    <message>
        <source>Somebody of another company asks to become a contact</source>
        <translation>外部公司的人请求成为联系人</translation>
    </message>
    <message>
        <source>Show a contact&apos;s card at the pointer</source>
        <translation>在指针处显示联系人卡片</translation>
    </message>
    <message>
        <source>Hide the card</source>
        <translation>隐藏卡片</translation>
    </message>
    <message>
        <source>Service numbers, people outside, card</source>
        <translation>服务号、外部人员、卡片</translation>
    </message>
</context>
<context>
    <name>VCardImport</name>
    <message>
        <source>%1 contacts added, %2 updated, %3 unchanged, %4 cards left out.</source>
        <translation>新增联系人 %1 位，更新 %2 位，未变 %3 位，略过名片 %4 张。</translation>
    </message>
    <message>
        <source>A card ends here that was never begun.</source>
        <translation>此处结束的名片没有开头。</translation>
    </message>
    <message>
        <source>line %1: %2</source>
        <translation>第 %1 行：%2</translation>
    </message>
    <message>
        <source>line %1: This card is the one of line %2 again; it was left out.</source>
        <translation>第 %1 行：此名片与第 %2 行的重复，已略过。</translation>
    </message>
    <message>
        <source>The contacts could not be stored.</source>
        <translation>联系人无法保存。</translation>
    </message>
    <message>
        <source>The file ends inside this card; it was left out.</source>
        <translation>文件在此名片中间结束，已略过。</translation>
    </message>
    <message>
        <source>The file has more than %1 cards; the rest was left out.</source>
        <translation>文件中的名片超过 %1 张，其余已略过。</translation>
    </message>
    <message>
        <source>There are more problems than are listed.</source>
        <translation>还有更多问题未列出。</translation>
    </message>
    <message>
        <source>There is text outside a card; it was left out.</source>
        <translation>名片之外有文字，已略过。</translation>
    </message>
    <message>
        <source>This card has more than %1 properties; it was left out.</source>
        <translation>此名片的属性超过 %1 项，已略过。</translation>
    </message>
    <message>
        <source>This card has no end; it was left out.</source>
        <translation>此名片没有结尾，已略过。</translation>
    </message>
    <message>
        <source>This card has no name; it was left out.</source>
        <translation>此名片没有姓名，已略过。</translation>
    </message>
    <message>
        <source>This is no vCard file: no card begins in it.</source>
        <translation>这不是 vCard 文件：其中没有名片。</translation>
    </message>
    <message>
        <source>This line is no property of a card; it was left out.</source>
        <translation>此行不是名片属性，已略过。</translation>
    </message>
</context>
<context>
    <name>BackendProcess</name>
    <message>
        <source>The back end did not answer within %1 s.</source>
        <translation>后台服务在 %1 秒内没有应答。</translation>
    </message>
    <message>
        <source>The back end %1 cannot be started: %2</source>
        <translation>无法启动后台服务 %1：%2</translation>
    </message>
    <message>
        <source>The back end writes something else than its address.</source>
        <translation>后台服务没有给出自己的地址。</translation>
    </message>
    <message>
        <source>The back end crashed.</source>
        <translation>后台服务异常退出。</translation>
    </message>
    <message>
        <source>The back end ended with code %1.</source>
        <translation>后台服务已退出，代码 %1。</translation>
    </message>
    <message>
        <source>The back end serves without encryption; it is not used.</source>
        <translation>后台服务未加密，已停止使用。</translation>
    </message>
    <message>
        <source>The back end's certificate %1 is missing.</source>
        <translation>缺少后台服务的证书 %1。</translation>
    </message>
    <message>
        <source>There is no password in %1.</source>
        <translation>%1 中没有密码。</translation>
    </message>
</context>
<context>
    <name>ServiceAddressFile</name>
    <message>
        <source>The file %1 with the addresses of the web services cannot be written.</source>
        <translation>无法写入网络服务地址文件 %1。</translation>
    </message>
</context>
<context>
    <name>WebSession</name>
    <message>
        <source>The web services refuse the log-in of %1 (code %2).</source>
        <translation>网络服务拒绝了 %1 的登录（代码 %2）。</translation>
    </message>
    <message>
        <source>There is no connection to the web services that can be trusted; the log tells why.</source>
        <translation>无法与网络服务建立可信的连接，原因见日志。</translation>
    </message>
    <message>
        <source>The web services cannot be reached: %1</source>
        <translation>无法连接网络服务：%1</translation>
    </message>
    <message>
        <source>The web services do not answer the log-in (status %1).</source>
        <translation>网络服务没有应答登录请求（状态 %1）。</translation>
    </message>
    <message>
        <source>The log-in to the web services has ended.</source>
        <translation>网络服务的登录已失效。</translation>
    </message>
</context>
<context>
    <name>WebServices</name>
    <message>
        <source>There is no password for the web services.</source>
        <translation>没有网络服务的密码。</translation>
    </message>
    <message>
        <source>web services: off</source>
        <translation>网络服务：未启用</translation>
    </message>
    <message>
        <source>web services: starting</source>
        <translation>网络服务：正在启动</translation>
    </message>
    <message>
        <source>web services: logging in</source>
        <translation>网络服务：正在登录</translation>
    </message>
    <message>
        <source>web services: logged in</source>
        <translation>网络服务：已登录</translation>
    </message>
    <message>
        <source>web services: trying again</source>
        <translation>网络服务：正在重试</translation>
    </message>
    <message>
        <source>web services: not available</source>
        <translation>网络服务：不可用</translation>
    </message>
</context>
<context>
    <name>WebRequestModel</name>
    <message>
        <source>Time</source>
        <translation>时间</translation>
    </message>
    <message>
        <source>Method</source>
        <translation>方法</translation>
    </message>
    <message>
        <source>Status</source>
        <translation>状态</translation>
    </message>
    <message>
        <source>ms</source>
        <translation>毫秒</translation>
    </message>
    <message>
        <source>Bytes sent</source>
        <translation>发送字节</translation>
    </message>
    <message>
        <source>Bytes received</source>
        <translation>接收字节</translation>
    </message>
    <message>
        <source>Address</source>
        <translation>地址</translation>
    </message>
    <message>
        <source>Error</source>
        <translation>错误</translation>
    </message>
</context>
<context>
    <name>WebMonitor</name>
    <message>
        <source>%1 requests</source>
        <translation>%1 个请求</translation>
    </message>
    <message>
        <source>%1 of %2 requests</source>
        <translation>%1 / %2 个请求</translation>
    </message>
    <message>
        <source>Web requests</source>
        <translation>网络请求</translation>
    </message>
</context>
<context>
    <name>ChatLevers</name>
    <message>
        <source>There is no such group chat.</source>
        <translation>没有这样的讨论组。</translation>
    </message>
    <message>
        <source>You may no longer write in &quot;%1&quot;.</source>
        <translation>您在“%1”中已被禁言。</translation>
    </message>
    <message>
        <source>You may write in &quot;%1&quot; again.</source>
        <translation>您在“%1”中已可以发言。</translation>
    </message>
    <message>
        <source>I have made a group chat for us.</source>
        <translation>我给大家建了一个讨论组。</translation>
    </message>
    <message>
        <source>Somebody has come into &quot;%1&quot;.</source>
        <translation>“%1”有新成员加入。</translation>
    </message>
    <message>
        <source>Somebody writes in a group chat</source>
        <translation>有人在讨论组中发言</translation>
    </message>
    <message>
        <source>Forbid writing in a group chat</source>
        <translation>在一个讨论组中被禁言</translation>
    </message>
    <message>
        <source>Allow writing in a group chat again</source>
        <translation>解除一个讨论组的禁言</translation>
    </message>
    <message>
        <source>Somebody renames a group chat</source>
        <translation>有人修改讨论组名称</translation>
    </message>
    <message>
        <source>Renamed %1</source>
        <translation>新名称 %1</translation>
    </message>
    <message>
        <source>A group chat gets another picture</source>
        <translation>一个讨论组更换头像</translation>
    </message>
    <message>
        <source>Somebody comes into a group chat</source>
        <translation>有人加入讨论组</translation>
    </message>
    <message>
        <source>You are put out of a group chat</source>
        <translation>您被移出一个讨论组</translation>
    </message>
    <message>
        <source>You no longer belong to &quot;%1&quot;.</source>
        <translation>您已不在“%1”中。</translation>
    </message>
    <message>
        <source>Somebody writes in a new group chat</source>
        <translation>有人在新讨论组中发言</translation>
    </message>
    <message>
        <source>There is no channel.</source>
        <translation>没有客服频道。</translation>
    </message>
    <message>
        <source>Remove a channel</source>
        <translation>移除一个客服频道</translation>
    </message>
    <message>
        <source>Add a channel again</source>
        <translation>恢复一个客服频道</translation>
    </message>
    <message>
        <source>No channel was removed.</source>
        <translation>没有被移除的客服频道。</translation>
    </message>
    <message>
        <source>A channel gets another picture</source>
        <translation>一个客服频道更换头像</translation>
    </message>
    <message>
        <source>Show the channels</source>
        <translation>显示客服频道</translation>
    </message>
    <message>
        <source>10,000 messages in up to 500 conversations</source>
        <translation>10,000 条消息，最多 500 个会话</translation>
    </message>
    <message>
        <source>Group chats, channels, messages</source>
        <translation>讨论组、客服频道、消息</translation>
    </message>
</context>
<context>
    <name>RoomManagement</name>
    <message>
        <source>%1 (owner)</source>
        <translation>%1（所有者）</translation>
    </message>
    <message>
        <source>%1 (manager)</source>
        <translation>%1（管理员）</translation>
    </message>
    <message>
        <source>You own this group chat.</source>
        <translation>您是所有者。</translation>
    </message>
    <message>
        <source>You are one of the managers.</source>
        <translation>您是管理员。</translation>
    </message>
    <message>
        <source>You are a member.</source>
        <translation>您是成员。</translation>
    </message>
    <message>
        <source>No longer manager</source>
        <translation>取消管理员</translation>
    </message>
    <message>
        <source>Make manager</source>
        <translation>设为管理员</translation>
    </message>
    <message>
        <source>Hand over the group chat</source>
        <translation>转让讨论组</translation>
    </message>
    <message>
        <source>%1 will own the group chat, and you will be a member. Only the new owner can undo this.</source>
        <translation>%1 将成为所有者，您将成为普通成员。只有新的所有者才能撤销。</translation>
    </message>
    <message>
        <source>Hand over</source>
        <translation>转让</translation>
    </message>
    <message>
        <source>Cancel</source>
        <translation>取消</translation>
    </message>
    <message>
        <source>Add people to the group chat</source>
        <translation>添加讨论组成员</translation>
    </message>
    <message>
        <source>Group chat: %1</source>
        <translation>讨论组：%1</translation>
    </message>
    <message>
        <source>Hand over…</source>
        <translation>转让…</translation>
    </message>
    <message>
        <source>Remove</source>
        <translation>移除</translation>
    </message>
    <message>
        <source>Add people…</source>
        <translation>添加成员…</translation>
    </message>
    <message>
        <source>Close</source>
        <translation>关闭</translation>
    </message>
</context>
<context>
    <name>TransferStatus</name>
    <message>
        <source>Sending %1 to %2</source>
        <translation>正在将 %1 发送给 %2</translation>
    </message>
    <message>
        <source>Sending %1 files</source>
        <translation>正在发送 %1 个文件</translation>
    </message>
    <message>
        <source>Cancel</source>
        <translation>取消</translation>
    </message>
</context>
<context>
    <name>BackendSource</name>
    <message>
        <source>%1 It is started once more.</source>
        <translation>%1正在重新启动。</translation>
    </message>
    <message>
        <source>The host whose back end was used has ended.</source>
        <translation>提供后端服务的宿主程序已退出。</translation>
    </message>
    <message>
        <source>There is no host whose back end could be used; it is waited for.</source>
        <translation>没有可用其后端服务的宿主程序，正在等待。</translation>
    </message>
</context>
<context>
    <name>BackendNotice</name>
    <message>
        <source>The file %1, by which other hosts find the back end, cannot be written.</source>
        <translation>无法写入供其他宿主程序查找后端服务的文件 %1。</translation>
    </message>
</context>
<context>
    <name>Notices</name>
    <message>
        <source>Notices</source>
        <translation>通知</translation>
    </message>
    <message>
        <source>Add as contact</source>
        <translation>添加为联系人</translation>
    </message>
    <message>
        <source>Decide</source>
        <translation>处理</translation>
    </message>
    <message>
        <source>Ignore</source>
        <translation>忽略</translation>
    </message>
</context>
<context>
    <name>TeamNews</name>
    <message>
        <source>asks for your approval of the team “%1”</source>
        <translation>申请创建虚拟团队“%1”，等待您审批</translation>
    </message>
    <message>
        <source>invites your company into the team “%1”</source>
        <translation>邀请贵公司加入虚拟团队“%1”</translation>
    </message>
    <message>
        <source>%1 has agreed: team “%2”</source>
        <translation>%1已同意：团队“%2”</translation>
    </message>
    <message>
        <source>%1 has refused: team “%2”</source>
        <translation>%1已拒绝：团队“%2”</translation>
    </message>
</context>
<context>
    <name>CompanyLevers</name>
    <message>
        <source>The company&apos;s settings could not be read or changed.</source>
        <translation>无法读取或更改企业的设置。</translation>
    </message>
    <message>
        <source>Virtual teams of the company</source>
        <translation>企业的虚拟团队</translation>
    </message>
    <message>
        <source>New teams need approval</source>
        <translation>创建团队需要审批</translation>
    </message>
    <message>
        <source>Nobody approves them</source>
        <translation>没有审批人</translation>
    </message>
    <message>
        <source>Approved by %1 (%2)</source>
        <translation>审批人：%1（%2）</translation>
    </message>
    <message>
        <source>Approve them myself</source>
        <translation>由我审批</translation>
    </message>
    <message>
        <source>Let a colleague approve them…</source>
        <translation>由同事审批…</translation>
    </message>
    <message>
        <source>Who approves new teams</source>
        <translation>由谁审批新团队</translation>
    </message>
</context>
</TS>
