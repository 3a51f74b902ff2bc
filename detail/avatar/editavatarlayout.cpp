// What the dialog is made of.
#include "controls/loadingoverlay.h"
#include "controls/pictures.h"
#include "controls/skin.h"
#include "controls/skinbutton.h"
#include "detail/avatar/editavatar.h"
#include "detail/avatar/headpreviews.h"
#include "detail/avatar/imagecutlabel.h"
#include "detail/avatar/sysavatartable.h"

#include <QButtonGroup>
#include <QGridLayout>
#include <QLabel>
#include <QProgressBar>
#include <QPushButton>
#include <QStackedWidget>
#include <QVBoxLayout>

namespace {
constexpr int Margin = 20; // device-independent pixels, as all below
constexpr int Gap = 12;
constexpr int ButtonWidth = 88;
constexpr int ProgressWidth = 200;
constexpr QSize TabMark(14, 8);

// As rgba() in a style sheet takes it; numbers only, whatever the skin's record says.
QString components(const QColor &color)
{
    return QStringLiteral("%1,%2,%3").arg(color.red()).arg(color.green()).arg(color.blue());
}

QLabel *tabMark(QWidget *parent)
{
    const QString path = QStringLiteral("Resources/images/icon/ic_tab_up.png");
    const QString file = resourcePath(path);
    // Of the places of pictures only those whose names are ours may be in a style sheet.
    const QString url = file == path || file.startsWith(QLatin1Char(':')) ? file : QString();
    auto *mark = new QLabel(parent);
    mark->setFixedSize(TabMark);
    if (url.isEmpty()) {
        mark->setPixmap(QPixmap(file));
        mark->setScaledContents(true);
    } else {
        mark->setStyleSheet(QStringLiteral("QLabel{border-image: url(%1);}").arg(url));
    }
    QSizePolicy keepsItsPlace = mark->sizePolicy();
    keepsItsPlace.setRetainSizeWhenHidden(true);
    mark->setSizePolicy(keepsItsPlace);
    return mark;
}
} // namespace

void EditAvatar::makeContents()
{
    auto *body = new QWidget(this);
    m_pages = new QStackedWidget(body);
    m_table = new SysAvatarTable(m_pages);
    m_table->setFixedWidth(SysAvatarTable::Columns * SysAvatarTable::CellSide);
    m_pages->addWidget(m_table);
    m_pages->addWidget(makeLocalPage());
    m_previews = new HeadPreviews(body);

    auto *layout = new QGridLayout(body);
    layout->setContentsMargins(Margin, Gap, Margin, Margin);
    layout->setHorizontalSpacing(Margin);
    layout->setVerticalSpacing(Gap);
    layout->addWidget(makeTabs(), 0, 0, 1, 2);
    layout->addWidget(m_pages, 1, 0);
    layout->addWidget(m_previews, 1, 1);
    layout->addWidget(makeBar(), 2, 0, 1, 2);
    bodyLayout()->addWidget(body);
    QWidget *const inOrder[] = {m_systemTab, m_localTab, m_table, m_cutLabel,
                                m_open,      m_save,     m_cancel};
    for (size_t i = 1; i < std::size(inOrder); ++i)
        setTabOrder(inOrder[i - 1], inOrder[i]);
}

QPushButton *EditAvatar::makeTab(const char *name, const QString &text)
{
    auto *tab = new QPushButton(text, this);
    tab->setObjectName(QLatin1String(name));
    tab->setCheckable(true);
    tab->setAutoDefault(false);
    tab->setCursor(Qt::PointingHandCursor);
    return tab;
}

QWidget *EditAvatar::makeTabs()
{
    auto *tabs = new QWidget(this);
    m_systemTab = makeTab("btnSystemPage", QString::fromUtf8("系统头像"));
    m_localTab = makeTab("btnLocalPage", QString::fromUtf8("本地上传"));
    auto *group = new QButtonGroup(tabs); // with it the arrow keys change the page
    group->addButton(m_systemTab);
    group->addButton(m_localTab);
    connect(m_systemTab, &QAbstractButton::toggled, this, [this](bool on) {
        if (on)
            slot_changeSystemPage();
    });
    connect(m_localTab, &QAbstractButton::toggled, this, [this](bool on) {
        if (on)
            slot_changeLocalPage();
    });
    m_systemMark = tabMark(tabs);
    m_localMark = tabMark(tabs);
    auto *layout = new QGridLayout(tabs);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setVerticalSpacing(2);
    layout->addWidget(m_systemTab, 0, 0);
    layout->addWidget(m_localTab, 0, 1);
    layout->addWidget(m_systemMark, 1, 0, Qt::AlignHCenter);
    layout->addWidget(m_localMark, 1, 1, Qt::AlignHCenter);
    layout->setColumnStretch(2, 1);
    return tabs;
}

QWidget *EditAvatar::makeLocalPage()
{
    auto *page = new QWidget(m_pages);
    auto *area = new QWidget(page);
    area->setObjectName(QStringLiteral("cutArea"));
    area->setStyleSheet(QStringLiteral("QWidget#cutArea{background-color: rgba(%1, %2);}")
                            .arg(components(Skin::color(QStringLiteral("200,200,200"), QColor())),
                                 QString::number(60)));
    area->setFixedSize(SysAvatarTable::Columns * SysAvatarTable::CellSide, BoundSide);
    m_cutLabel = new ImageCutLabel(area);
    m_cutLabel->setPixmap(QPixmap(), QSize(BoundSide, BoundSide));
    connect(m_cutLabel, &ImageCutLabel::signal_CurrentPixmap, this, &EditAvatar::slot_SetCutPixmap);
    auto *inside = new QVBoxLayout(area);
    inside->setContentsMargins(0, 0, 0, 0);
    inside->addWidget(m_cutLabel, 0, Qt::AlignCenter);
    m_busy = new LoadingOverlay(area);

    m_open = new SkinButton(SkinButton::Outline, QString(), page);
    m_open->setObjectName(QStringLiteral("btnUpload"));
    m_open->setText(QString::fromUtf8("上传照片"));
    m_open->setMinimumWidth(ButtonWidth);
    m_open->setAutoDefault(false);
    connect(m_open, &QPushButton::clicked, this, &EditAvatar::slot_UploadBtnclicked);
    auto *hint =
        new QLabel(QString::fromUtf8("温馨提示：\n\n本操作仅支持JPG、JPEG、PNG图片文件"), page);
    hint->setTextFormat(Qt::PlainText);
    hint->setFont(skinFont(12));
    hint->setForegroundRole(QPalette::PlaceholderText);

    auto *layout = new QGridLayout(page);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setVerticalSpacing(Gap);
    layout->addWidget(area, 0, 0, 1, 2);
    layout->addWidget(m_open, 1, 0, Qt::AlignLeft | Qt::AlignTop);
    layout->addWidget(hint, 1, 1, Qt::AlignLeft | Qt::AlignTop);
    layout->setColumnStretch(1, 1);
    layout->setHorizontalSpacing(Margin);
    return page;
}

QWidget *EditAvatar::makeBar()
{
    auto *bar = new QWidget(this);
    m_progress = new QProgressBar(bar);
    m_progress->setObjectName(QStringLiteral("uploadProgress"));
    m_progress->setFixedWidth(ProgressWidth);
    m_progress->setFont(skinFont(12));
    m_progress->hide();
    m_save = new SkinButton(SkinButton::Primary, QString(), bar);
    m_save->setObjectName(QStringLiteral("btnSave"));
    m_save->setText(QString::fromUtf8("保存"));
    m_save->setDefault(true);
    m_cancel = new SkinButton(SkinButton::Outline, QString(), bar);
    m_cancel->setObjectName(QStringLiteral("btnCancel"));
    m_cancel->setText(QString::fromUtf8("取消"));
    m_cancel->setAutoDefault(false);
    connect(m_save, &QPushButton::clicked, this, &EditAvatar::slot_SaveBtnclicked);
    connect(m_cancel, &QPushButton::clicked, this, &QDialog::reject);
    auto *layout = new QHBoxLayout(bar);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(Gap);
    layout->addWidget(m_progress);
    layout->addStretch(1);
    for (SkinButton *button : {m_save, m_cancel}) {
        button->setMinimumWidth(ButtonWidth);
        layout->addWidget(button);
    }
    return bar;
}

void EditAvatar::showPage(int page)
{
    m_pages->setCurrentIndex(page);
    m_systemTab->setChecked(page == 0);
    m_localTab->setChecked(page == 1);
    m_systemMark->setVisible(page == 0);
    m_localMark->setVisible(page == 1);
    previewPresent();
}

void EditAvatar::slot_SkinChange(const SysUIData &skin)
{
    const Skin::Colors &colors = Skin::instance().colors();
    const QString alpha = QString::number(qBound(0, skin.alpha, 255));
    titleBar()->setStyleSheet(QStringLiteral("QWidget#titleWidget{background-color: rgba(%1, %2);}")
                                  .arg(components(colors.side), alpha));
    // A dark skin that names no colour of its own needs a light one.
    const QColor named =
        Skin::color(skin.textColor, Skin::color(QStringLiteral("0,0,0"), QColor()));
    const QColor chosen = Skin::instance().isDark() ? colors.text : named;
    const QString sheet =
        QStringLiteral("QPushButton{border:1px solid transparent;border-radius:4px;"
                       "background:transparent;padding:4px 10px;"
                       "color: rgba(%1, %2);font-size:14px;}"
                       "QPushButton:checked{color: rgba(%3, %2);font-size:14px;}"
                       "QPushButton:focus{border-color:rgb(%4);}")
            .arg(components(colors.secondary), QString::number(255), components(chosen),
                 components(colors.theme));
    for (QPushButton *tab : {m_systemTab, m_localTab})
        tab->setStyleSheet(sheet);
}
