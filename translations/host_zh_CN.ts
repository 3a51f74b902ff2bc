<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="zh_CN" sourcelanguage="en">
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
</context>
<context>
    <name>ChatView</name>
    <message>
        <source>(shortened)</source>
        <translation>（已截短）</translation>
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
        <source>%1 older ones dropped</source>
        <translation>已丢弃较早的 %1 个</translation>
    </message>
    <message>
        <source>paused</source>
        <translation>已暂停</translation>
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
        <source>Filter: words in any column</source>
        <translation>筛选：任意列中的词</translation>
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
        <source>The plug-in has no pane.</source>
        <translation>该插件没有界面。</translation>
    </message>
</context>
<context>
    <name>HostWindows</name>
    <message>
        <source>A chat was asked for without a jid.</source>
        <translation>收到了没有 jid 的会话请求。</translation>
    </message>
    <message>
        <source>Send a file</source>
        <translation>发送文件</translation>
    </message>
    <message>
        <source>This host transfers no files. A client would now let the user choose files for:</source>
        <translation>本宿主程序不传输文件。正式客户端此时会让用户选择要发送的文件，接收人：</translation>
    </message>
    <message>
        <source>New group chat</source>
        <translation>新建群聊</translation>
    </message>
    <message>
        <source>Subject</source>
        <translation>群聊名称</translation>
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
        <source>Picture</source>
        <translation>图片</translation>
    </message>
    <message>
        <source>This host has no picture viewer. A client would now show the picture of %1:</source>
        <translation>本宿主程序没有图片查看器。正式客户端此时会显示 %1 的图片：</translation>
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
        <source>Manage the group chat</source>
        <translation>群聊管理</translation>
    </message>
    <message>
        <source>This host has no page for the owner and the managers of a group chat.</source>
        <translation>本宿主程序没有群主与管理员的设置页面。</translation>
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
        <source>No service for external contacts: the request to %1 was not sent.</source>
        <translation>没有外部联系人服务：未向 %1 发出请求。</translation>
    </message>
    <message>
        <source>No service for external contacts: the answer to %1 was not sent.</source>
        <translation>没有外部联系人服务：未答复 %1。</translation>
    </message>
    <message>
        <source>No service for external contacts: %1 was not blacklisted.</source>
        <translation>没有外部联系人服务：未将 %1 加入黑名单。</translation>
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
        <source>FriendUI reference host</source>
        <translation>FriendUI 参考宿主程序</translation>
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
</TS>
