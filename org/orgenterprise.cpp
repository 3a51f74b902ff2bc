// The pages of the organisation for who has none to see, and the links that lead
// from there to the company's own site.
#include "common/logging.h"
#include "controls/pictures.h"
#include "controls/skin.h"
#include "controls/tipbox.h"
#include "http/httpmgr.h"
#include "org/orgwidget.h"

#include <QDesktopServices>
#include <QLabel>
#include <QPushButton>
#include <QStackedWidget>
#include <QUrl>
#include <QVBoxLayout>

namespace {

constexpr int PictureSize = 120;

QVBoxLayout *centredLayout(QWidget *page)
{
    auto *layout = new QVBoxLayout(page);
    layout->setContentsMargins(24, 24, 24, 24);
    layout->setSpacing(12);
    layout->addStretch(2);
    return layout;
}

QLabel *addPicture(QVBoxLayout *layout, const char *file)
{
    auto *picture = new QLabel(layout->parentWidget());
    picture->setAlignment(Qt::AlignCenter);
    picture->setPixmap(loadPicture(QString::fromLatin1(file), PictureSize,
                                   layout->parentWidget()->devicePixelRatioF()));
    layout->addWidget(picture);
    return picture;
}

QLabel *addText(QVBoxLayout *layout, const char *name)
{
    auto *label = new QLabel(layout->parentWidget());
    label->setObjectName(QLatin1String(name));
    label->setTextFormat(Qt::PlainText);
    label->setAlignment(Qt::AlignCenter);
    label->setWordWrap(true);
    label->setForegroundRole(QPalette::PlaceholderText);
    followSkin(label); // below a widget with a style sheet nothing inherits a palette
    layout->addWidget(label);
    return label;
}

} // namespace

QWidget *OrgWidget::noEnterprisePage()
{
    if (m_noEnterprisePage)
        return m_noEnterprisePage;
    m_noEnterprisePage = new QWidget(m_pages);
    m_noEnterprisePage->setObjectName(QStringLiteral("notInENterprise"));
    QVBoxLayout *layout = centredLayout(m_noEnterprisePage);
    addPicture(layout, "Resources/images/contacts/empty_list.png");
    m_enterpriseTip = addText(layout, "lblEnterpriseTip");
    m_enterpriseTip->setStyleSheet(
        QStringLiteral("QLabel#lblEnterpriseTip{font-family:'Microsoft Yahei';font-size: 12px;}"));
    m_registerButton = new QPushButton(m_noEnterprisePage);
    m_registerButton->setObjectName(QStringLiteral("btnRegisterEnterprise"));
    m_registerButton->setStyleSheet(QStringLiteral(
        "QPushButton#btnRegisterEnterprise{font-family:'Microsoft Yahei';font-size: 12px;}"));
    followSkin(m_registerButton);
    layout->addWidget(m_registerButton, 0, Qt::AlignCenter);
    // A button, so that the keyboard reaches it, with the looks of a link.
    m_manageLink = new QPushButton(m_noEnterprisePage);
    m_manageLink->setObjectName(QStringLiteral("orgStructureManage"));
    m_manageLink->setFlat(true);
    m_manageLink->setCursor(Qt::PointingHandCursor);
    QFont font = skinFont(12);
    font.setUnderline(true);
    m_manageLink->setFont(font);
    const auto colour = [this] {
        QPalette palette = Skin::instance().palette();
        palette.setColor(QPalette::ButtonText, Skin::instance().colors().theme);
        m_manageLink->setPalette(palette);
    };
    colour();
    connect(&Skin::instance(), &Skin::changed, m_manageLink, colour);
    layout->addWidget(m_manageLink, 0, Qt::AlignCenter);
    layout->addStretch(3);
    connect(m_registerButton, &QPushButton::clicked, this, &OrgWidget::slot_registerEnterprise);
    connect(m_manageLink, &QPushButton::clicked, this, &OrgWidget::slot_gotoEnterpriseBackground);
    m_pages->addWidget(m_noEnterprisePage);
    retranslate();
    return m_noEnterprisePage;
}

QWidget *OrgWidget::noPermissionPage()
{
    if (m_noPermissionPage)
        return m_noPermissionPage;
    m_noPermissionPage = new QWidget(m_pages);
    m_noPermissionPage->setObjectName(QStringLiteral("orgNoPermission"));
    QVBoxLayout *layout = centredLayout(m_noPermissionPage);
    addPicture(layout, "Resources/images/contacts/empty_list.png")
        ->setObjectName(QStringLiteral("OrgNotPremisionPic"));
    m_permissionText = addText(layout, "OrgNotPremissionText");
    m_permissionText->setFont(skinFont(13));
    layout->addStretch(3);
    m_pages->addWidget(m_noPermissionPage);
    retranslate();
    return m_noPermissionPage;
}

void OrgWidget::retranslate()
{
    m_locating->setText(QObject::tr("orgLocating"));
    if (m_noEnterprisePage) {
        m_enterpriseTip->setText(QObject::tr("notInENterprise"));
        m_registerButton->setText(QObject::tr("registerEnterprise"));
        m_manageLink->setText(QObject::tr("orgStructureManage"));
    }
    if (m_noPermissionPage)
        m_permissionText->setText(QObject::tr("OrgNotPremissionText"));
}

// --- Links -----------------------------------------------------------------------

void OrgWidget::slot_registerEnterprise()
{
    LOG_SCOPE("OrgWidget::slot_registerEnterprise()");
    openLink("/enterprise/enterpriseBackgroundSingleUrl");
}

void OrgWidget::slot_gotoEnterpriseBackground()
{
    LOG_SCOPE("OrgWidget::slot_gotoEnterpriseBackground()");
    openLink("/enterprise/enterpriseBackgroundOrganizationUrl");
}

void OrgWidget::openLink(const char *key)
{
    // Only while a link was asked for here: others ask the same service.
    connect(HttpMgr::instance(), &HttpMgr::signal_getThirdPartyRealLinkFinish, this,
            &OrgWidget::slot_GetThirdPartyRealLinkFinish, Qt::UniqueConnection);
    HttpMgr::instance()->getThirdPartyRealLink(key);
}

void OrgWidget::slot_GetThirdPartyRealLinkFinish(bool bSuccess, QString strUrl)
{
    LOG_DEBUG("entry fun OrgWidget::slot_GetThirdPartyRealLinkFinish(),bSuccess="
              << (bSuccess ? "true" : "false"));
    disconnect(HttpMgr::instance(), &HttpMgr::signal_getThirdPartyRealLinkFinish, this,
               &OrgWidget::slot_GetThirdPartyRealLinkFinish);
    const QUrl url(strUrl, QUrl::StrictMode);
    const bool isWeb =
        url.scheme() == QLatin1String("http") || url.scheme() == QLatin1String("https");
    if (bSuccess && url.isValid() && isWeb && !url.host().isEmpty())
        QDesktopServices::openUrl(url);
    else
        TipBox::tell(this, QObject::tr("orgLinkFailed"));
}
