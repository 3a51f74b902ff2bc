#include "host/windows/importreport.h"

#include <QDialogButtonBox>
#include <QFileInfo>
#include <QFontDatabase>
#include <QLabel>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QVBoxLayout>

ImportReport::ImportReport(const QString &fileName, const QString &summary,
                           const QStringList &problems, QWidget *parent)
    : QDialog(parent)
{
    setObjectName(QStringLiteral("importReport"));
    setWindowFlag(Qt::WindowContextHelpButtonHint, false);
    setAttribute(Qt::WA_DeleteOnClose);
    setWindowTitle(tr("Import of %1").arg(QFileInfo(fileName).fileName()));

    auto *layout = new QVBoxLayout(this);
    layout->setContentsMargins(16, 16, 16, 14);
    layout->setSpacing(10);
    auto *label = new QLabel(summary, this);
    label->setTextFormat(Qt::PlainText);
    label->setWordWrap(true);
    layout->addWidget(label);
    auto *list = new QPlainTextEdit(problems.join(QLatin1Char('\n')), this);
    list->setObjectName(QStringLiteral("importProblems"));
    list->setReadOnly(true);
    list->setFont(QFontDatabase::systemFont(QFontDatabase::FixedFont));
    layout->addWidget(list, 1);
    auto *buttons = new QDialogButtonBox(QDialogButtonBox::Close, this);
    buttons->button(QDialogButtonBox::Close)->setText(tr("Close"));
    connect(buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);
    layout->addWidget(buttons);
    resize(560, 360);
}
