#pragma once

#include "recordprobe.h"
#include "recordschema.h"

#include <QMap>
#include <QObject>

#include <vector>

/// A record under test.
struct RecordRow {
    const char *name; ///< As in the data files, without the namespace that they all share.
    RecordProbe probe;
};

/// The tests that apply to the records of every domain. The test of a domain derives from it with a
/// list of its records.
///
/// The expected texts were written by hand from the protocol. records.tsv has the name of each
/// record and the text of its default value; recordvalues.tsv has its name, the types of its fields
/// and a text in which no field has its default.
class RecordTest : public QObject {
    Q_OBJECT

protected:
    /// \a domains are the namespaces whose records must all be in \a rows.
    RecordTest(QByteArrayList domains, std::vector<RecordRow> rows);

private Q_SLOTS:
    void initTestCase();
    void everyRecordOfTheDomainIsTested();
    void defaultIsWrittenAsTheTableSays_data() { addRows(); }
    void defaultIsWrittenAsTheTableSays();
    void defaultIsReadBack_data() { addRows(); }
    void defaultIsReadBack();
    void missingKeysKeepTheirDefaultsAndUnknownOnesAreSkipped_data() { addRows(); }
    void missingKeysKeepTheirDefaultsAndUnknownOnesAreSkipped();
    void fieldsHaveTheTypesOfTheTable_data() { addRows(); }
    void fieldsHaveTheTypesOfTheTable();
    void recordWithNoFieldAtItsDefaultSurvives_data() { addRows(); }
    void recordWithNoFieldAtItsDefaultSurvives();
    void listsAreWrittenAndReadAsArrays_data() { addRows(); }
    void listsAreWrittenAndReadAsArrays();
    void schemaHasTheFieldsInOrderWithTheirTypesAndDefaults_data() { addRows(); }
    void schemaHasTheFieldsInOrderWithTheirTypesAndDefaults();
    void schemaBoundsAreThoseOfTheCodec_data() { addRows(); }
    void schemaBoundsAreThoseOfTheCodec();
    void schemaAcceptsWhatIsWritten_data() { addRows(); }
    void schemaAcceptsWhatIsWritten();

private:
    struct Expected {
        QByteArray defaultText;
        QByteArray fieldTypes;
        QByteArray fullText;
    };

    void addRows() const;
    /// The probe and the expected texts of the current row.
    const RecordProbe &probe() const;
    Expected expected() const;

    const QByteArrayList m_domains;
    const std::vector<RecordRow> m_rows;
    QMap<QByteArray, Expected> m_expected; // by name, without the shared namespace
    const RecordSchema m_schema;
};
