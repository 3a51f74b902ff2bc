#include "tests/support/testrunner.h"

#include <QTranslator>

class TstCatalogues : public QObject
{
    Q_OBJECT

private slots:
    void loads_data()
    {
        const Rows<QString, QString, QString> row{"language", "notice", "afterAName"};
        row("zh_CN", "zh_CN", QString::fromUtf8("提示"),
            QString::fromUtf8("拒绝任何人添加为联系人"));
        // The text follows a name, so its leading blank must survive the compiling.
        row("en", "en", "Notice", " accepts no contact requests");
    }

    void loads()
    {
        QFETCH(QString, language);
        QFETCH(QString, notice);
        QFETCH(QString, afterAName);
        QTranslator translator;
        QVERIFY(translator.load(QStringLiteral("friendui_") + language,
                                qEnvironmentVariable("FRIENDUI_BIN") +
                                    QStringLiteral("/translations")));
        QCOMPARE(translator.translate("QObject", "tip"), notice);
        QCOMPARE(translator.translate("QObject", "refusefriends"), afterAName);
    }
};

FRIENDUI_TEST(TstCatalogues)
#include "tst_catalogues.moc"
