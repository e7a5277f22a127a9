#include <support/common/datatable.h>
#include <tavorocontrol/controlhelper.h>

#include <QMap>
#include <QtTest>

using Tavoro::Control::ControlHelper;

class tst_CommandLabels : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void everyPairHasItsLabelOrNone();
    void labelsOfTheTable_data();
    void labelsOfTheTable();
    void pairsWithoutACommandHaveNoLabel_data();
    void pairsWithoutACommandHaveNoLabel();

private:
    QMap<int, QString> m_labels; ///< The key is the command code.
};

void tst_CommandLabels::initTestCase()
{
    const auto rows = dataTable(QStringLiteral("commandlabels.tsv"));
    for (const QStringList &row : rows) {
        QCOMPARE(row.size(), 3);
        m_labels.insert(row.at(0).toInt() << 8 | row.at(1).toInt(), row.at(2));
    }
    QCOMPARE(m_labels.size(), 14 + 14 + 18 + 16 + 1 + 1 + 10 + 13);
}

void tst_CommandLabels::everyPairHasItsLabelOrNone()
{
    for (int code = 0; code <= 0xFFFF; ++code) {
        const QString label =
            ControlHelper::commandLabel(static_cast<quint8>(code >> 8), static_cast<quint8>(code));
        const QString expected = m_labels.value(code, QStringLiteral("N/A"));
        if (label != expected)
            QFAIL(qPrintable(QStringLiteral("%1: %2").arg(code, 4, 16).arg(label)));
    }
}

void tst_CommandLabels::labelsOfTheTable_data()
{
    QTest::addColumn<int>("code");
    QTest::addColumn<QString>("label");

    for (auto row = m_labels.cbegin(); row != m_labels.cend(); ++row)
        QTest::addRow("%04X", row.key()) << row.key() << row.value();
}

void tst_CommandLabels::labelsOfTheTable()
{
    QFETCH(const int, code);
    QTEST(ControlHelper::commandLabel(static_cast<quint8>(code >> 8), static_cast<quint8>(code)),
          "label");
}

void tst_CommandLabels::pairsWithoutACommandHaveNoLabel_data()
{
    QTest::addColumn<int>("code");

    QTest::newRow("gap in the device's codes") << 0x110B;
    QTest::newRow("auxiliary codes begin at 1") << 0xFC00;
    QTest::newRow("between two labels of screens") << 0x1311;
    QTest::newRow("after the last label of screens") << 0x1315;
    QTest::newRow("another base code") << 0x1000;
    QTest::newRow("base code between files and maintenance") << 0xFB01;
}

void tst_CommandLabels::pairsWithoutACommandHaveNoLabel()
{
    QFETCH(const int, code);
    QCOMPARE(ControlHelper::commandLabel(static_cast<quint8>(code >> 8), static_cast<quint8>(code)),
             QStringLiteral("N/A"));
}

QTEST_APPLESS_MAIN(tst_CommandLabels)
#include "tst_commandlabels.moc"
