// Which log lines the tool shows on standard error.

#include <tavoroctl/output/console.h>

#include <QLoggingCategory>
#include <QTest>

#include <memory>

class tst_TavoroCtlLog : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void init();
    void cleanup();

    void hiddenLogHasNoLine_data();
    void hiddenLogHasNoLine();
    void shownLogHasEveryCategory();

private:
    QtMessageHandler m_handler = nullptr; ///< Of the test.
};

void tst_TavoroCtlLog::init()
{
    m_handler = qInstallMessageHandler(nullptr);
}

void tst_TavoroCtlLog::cleanup()
{
    qInstallMessageHandler(m_handler);
    QLoggingCategory::setFilterRules({});
}

void tst_TavoroCtlLog::hiddenLogHasNoLine_data()
{
    QTest::addColumn<QByteArray>("name");
    for (const char *name : {"tavoro.control", "tavoro.channel", "qt.network", "default"})
        QTest::newRow(name) << QByteArray(name);
}

void tst_TavoroCtlLog::hiddenLogHasNoLine()
{
    QFETCH(QByteArray, name);
    Tavoro::Ctl::setLogShown(false);
    const QLoggingCategory category(name.constData());
    QVERIFY(!category.isDebugEnabled());
    QVERIFY(!category.isInfoEnabled());
    QVERIFY(!category.isWarningEnabled());
    QVERIFY(!category.isCriticalEnabled());
}

void tst_TavoroCtlLog::shownLogHasEveryCategory()
{
    Tavoro::Ctl::setLogShown(true);
    const QLoggingCategory category("tavoro.control", QtCriticalMsg);
    QVERIFY(category.isDebugEnabled());
    QVERIFY(QLoggingCategory::defaultCategory()->isWarningEnabled());
}

QTEST_GUILESS_MAIN(tst_TavoroCtlLog)
#include "tst_tavoroctllog.moc"
