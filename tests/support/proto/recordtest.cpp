#include "recordtest.h"

#include <QFile>

#include <algorithm>
#include <utility>

namespace {

const QByteArray sharedNamespace = QByteArrayLiteral("Tavoro::ProtoModel::");

/// The rows of a data file, with names that lack the shared namespace.
QList<QByteArrayList> dataRows(const char *fileName)
{
    QFile file(QStringLiteral(TEST_DATA_DIR "/") + QLatin1String(fileName));
    QList<QByteArrayList> rows;
    if (!file.open(QIODevice::ReadOnly))
        return rows;
    while (!file.atEnd()) {
        QByteArrayList row = file.readLine().trimmed().split('\t');
        row[0].remove(0, sharedNamespace.size());
        rows << row;
    }
    return rows;
}

QByteArray domainOf(const QByteArray &name)
{
    return name.left(qMax(0, int(name.indexOf("::"))));
}

} // namespace

RecordTest::RecordTest(QByteArrayList domains, std::vector<RecordRow> rows)
    : m_domains(std::move(domains)), m_rows(std::move(rows))
{ }

void RecordTest::initTestCase()
{
    for (const auto &row : dataRows("records.tsv")) {
        QCOMPARE(row.size(), 2);
        m_expected[row[0]].defaultText = row[1];
    }
    for (const auto &row : dataRows("recordvalues.tsv")) {
        QCOMPARE(row.size(), 3);
        m_expected[row[0]].fieldTypes = row[1];
        m_expected[row[0]].fullText = row[2];
    }
    QVERIFY(!m_expected.isEmpty());
    QVERIFY(m_schema.isValid());
}

void RecordTest::everyRecordOfTheDomainIsTested()
{
    QByteArrayList untested;
    for (auto it = m_expected.cbegin(); it != m_expected.cend(); ++it) {
        const auto isTested = [&](const RecordRow &row) {
            return it.key() == row.name;
        };
        if (m_domains.contains(domainOf(it.key()))
            && std::none_of(m_rows.begin(), m_rows.end(), isTested))
            untested << it.key();
    }
    QCOMPARE(untested.join(' '), QByteArray());
}

void RecordTest::addRows() const
{
    QTest::addColumn<int>("index");
    for (std::size_t i = 0; i < m_rows.size(); ++i)
        QTest::newRow(m_rows[i].name) << int(i);
}

const RecordProbe &RecordTest::probe() const
{
    QFETCH(int, index);
    return m_rows[std::size_t(index)].probe;
}

RecordTest::Expected RecordTest::expected() const
{
    return m_expected.value(QTest::currentDataTag());
}

void RecordTest::defaultIsWrittenAsTheTableSays()
{
    QCOMPARE(probe().defaultText(), expected().defaultText);
}

void RecordTest::defaultIsReadBack()
{
    const QByteArray text = expected().defaultText;
    QCOMPARE(probe().rewritten(text), text);
}

void RecordTest::missingKeysKeepTheirDefaultsAndUnknownOnesAreSkipped()
{
    const QByteArray strange = R"({"noSuchKey":[{"inner":[1,"two",{}]},null],"norThis":-1.5})";
    QCOMPARE(probe().rewritten(strange), expected().defaultText);
}

void RecordTest::fieldsHaveTheTypesOfTheTable()
{
    QCOMPARE(probe().fieldTypes(), expected().fieldTypes);
}

void RecordTest::recordWithNoFieldAtItsDefaultSurvives()
{
    const QByteArray text = expected().fullText;
    QVERIFY(probe().everyFieldDiffersFromDefault(text));
    QCOMPARE(probe().rewritten(text), text);
}

void RecordTest::listsAreWrittenAndReadAsArrays()
{
    const Expected texts = expected();
    const QByteArray list = '[' + texts.fullText + ',' + texts.defaultText + ']';
    QCOMPARE(probe().rewrittenList("[]"), QByteArray("[]"));
    QCOMPARE(probe().rewrittenList(list), list);
}

void RecordTest::schemaHasTheFieldsInOrderWithTheirTypesAndDefaults()
{
    const QByteArray name = QTest::currentDataTag();
    QCOMPARE(m_schema.fieldTypes(name), expected().fieldTypes);
    QCOMPARE(m_schema.text(name, RecordSchema::Choice::Default), probe().defaultText());
}

/// Integers up to the bounds survive; one more wraps around to the other end of the range.
void RecordTest::schemaBoundsAreThoseOfTheCodec()
{
    const QByteArray name = QTest::currentDataTag();
    const QByteArray minimum = m_schema.text(name, RecordSchema::Choice::Minimum);
    const QByteArray maximum = m_schema.text(name, RecordSchema::Choice::Maximum);
    const QByteArray beyond = m_schema.text(name, RecordSchema::Choice::BeyondMaximum);
    QCOMPARE(probe().rewritten(minimum), minimum);
    QCOMPARE(probe().rewritten(maximum), maximum);
    QCOMPARE(probe().rewritten(beyond), minimum);
}

void RecordTest::schemaAcceptsWhatIsWritten()
{
    const QByteArray name = QTest::currentDataTag();
    QCOMPARE(m_schema.error(name, probe().defaultText()), QString());
    QCOMPARE(m_schema.error(name, probe().rewritten(expected().fullText)), QString());
    QVERIFY(!m_schema.error(name, "{}").isEmpty());
}
