#include <support/common/datatable.h>
#include <tavorocontrol/controlhelper.h>

#include <QMap>
#include <QtTest>

using Tavoro::Control::ControlHelper;

class tst_ErrorTexts : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void everyStatusHasItsText();
    void rangesOfStatusesHaveTheirTexts_data();
    void rangesOfStatusesHaveTheirTexts();

private:
    QString expected(int status) const;

    QMap<int, QString> m_texts; ///< The key is the status; only statuses with a text of their own.
};

void tst_ErrorTexts::initTestCase()
{
    const auto rows = dataTable(QStringLiteral("errortexts.tsv"));
    for (const QStringList &row : rows) {
        QCOMPARE(row.size(), 2);
        m_texts.insert(row.at(0).toInt(), row.at(1));
    }
    QCOMPARE(m_texts.size(), 1 + 8 + 9);
}

QString tst_ErrorTexts::expected(int status) const
{
    if (m_texts.contains(status))
        return m_texts.value(status);
    if (status >= 1 && status <= 255)
        return QStringLiteral("hardware error:") + QString::number(status);
    return QStringLiteral("N/A");
}

void tst_ErrorTexts::everyStatusHasItsText()
{
    for (int status = 0; status <= 0xFFFF; ++status) {
        const QString text = ControlHelper::errorText(static_cast<quint16>(status));
        if (text != expected(status))
            QFAIL(qPrintable(QStringLiteral("%1: %2").arg(status).arg(text)));
    }
}

void tst_ErrorTexts::rangesOfStatusesHaveTheirTexts_data()
{
    QTest::addColumn<int>("status");
    QTest::addColumn<QString>("text");

    // clang-format off
    QTest::newRow("success")                    <<   0 << "N/A";
    QTest::newRow("first of the device")        <<   1 << "hardware error:1";
    QTest::newRow("before the controlled one")  <<  66 << "hardware error:66";
    QTest::newRow("controlled by others")       <<  67 << "The current device is already under control";
    QTest::newRow("data updated")               <<  68 << "hardware error:68";
    QTest::newRow("last of the device")         << 255 << "hardware error:255";
    QTest::newRow("between device and channel") << 256 << "N/A";
    QTest::newRow("first of the channel")       << 257 << "software error: Channel is not initialized";
    QTest::newRow("last of the channel")        << 264 << "software error: Sending thread is not initialized or not started";
    QTest::newRow("after the channel")          << 265 << "N/A";
    QTest::newRow("between the local ones")     << 300 << "N/A";
    QTest::newRow("before the decoder")         << 356 << "N/A";
    QTest::newRow("first of the decoder")       << 357 << "protocol error: Invalid register address";
    QTest::newRow("last of the decoder")        << 365 << "protocol error: Device response decoding timed out";
    QTest::newRow("after the decoder")          << 366 << "N/A";
    // clang-format on
}

void tst_ErrorTexts::rangesOfStatusesHaveTheirTexts()
{
    QFETCH(const int, status);
    QTEST(ControlHelper::errorText(static_cast<quint16>(status)), "text");
}

QTEST_APPLESS_MAIN(tst_ErrorTexts)
#include "tst_errortexts.moc"
