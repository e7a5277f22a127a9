#pragma once

#include "scripteddevice.h"
#include <support/tavorobizmodel/journal.h>

#include <tavorobizmodel/device.h>

#include <QByteArray>
#include <QSignalSpy>
#include <QString>
#include <QTest>

#include <functional>
#include <memory>
#include <string>
#include <type_traits>
#include <vector>

// Shared by the tests of the control classes: a control object on a scripted device, and the check
// of one row of a table of writes. The tables themselves are in the tests.

/// A control object on a device of its own, and everything that it reports.
template <class Control>
struct Controlled {
    Controlled() : control(device.model, nullptr)
    {
        // Values that no operation uses, to show where a timeout comes from.
        setTimeouts(7001, {});
    }

    void setTimeouts(quint32 defaultTimeout, const Tavoro::BizModel::s_CommandTimeout &row)
    {
        auto &config = device.model->deviceConfig();
        config.defaultTimeout = defaultTimeout;
        config.timeouts = {std::make_shared<Tavoro::BizModel::s_CommandTimeout>(row)};
    }

    std::size_t sentCount() const { return device.channel->sent().size(); }
    SentRequest lastSent() const { return device.channel->sent().back(); }
    QStringList warnings() const { return journal.lines().filter(QStringLiteral("warning: ")); }

    ScriptedDevice device;
    Journal journal;
    Control control;
    QString error = QStringLiteral("text from before");
};

inline QString textFromBefore()
{
    return QStringLiteral("text from before");
}

inline QString asText(const std::string &text)
{
    return QString::fromStdString(text);
}

/// Bytes \a first to \a last of the head in hexadecimal.
inline QString headHex(const SentRequest &request, int first = 18, int last = 35)
{
    const QByteArray bytes = QByteArray::fromStdString(request.headBytes(first, last));
    return QString::fromLatin1(bytes.toHex());
}

/// Bytes 18 to 35 of the head of a request of one packet, in hexadecimal. Bytes that are not set
/// are as constructed.
inline QString requestHead(quint8 type, quint16 code, const char *arguments = "00000000")
{
    const QByteArray bytes = "0000" + QByteArray(1, char(type)).toHex() + "00000000" + "00000000"
        + QByteArray(1, char(code & 0xFF)).toHex() + QByteArray(1, char(code >> 8)).toHex()
        + arguments + "00";
    return QString::fromLatin1(bytes);
}

/// One write: the member with its list, and what must be sent to the device.
template <class Control>
struct WriteRow {
    using Call = std::function<bool(Control &, QString &)>;

    const char *name;
    Call write; ///< With the list of the row.
    Call writeEmpty; ///< With an empty list; empty for a write of one record.
    quint16 code;
    std::string body;
};

// The two makers of rows take a member of exactly the form that they are named after: a table that
// compiles proves which lists go by reference and which by value.

template <class Record, class Control>
WriteRow<Control> byReference(const char *name,
                              bool (Control::*member)(const std::vector<Record> &, QString &),
                              quint16 code, std::vector<Record> list, std::string body)
{
    return {name, [=](Control &control, QString &error) { return (control.*member)(list, error); },
            [=](Control &control, QString &error) { return (control.*member)({}, error); }, code,
            std::move(body)};
}

template <class Record, class Control>
WriteRow<Control> byValue(const char *name, bool (Control::*member)(std::vector<Record>, QString &),
                          quint16 code, std::vector<Record> list, std::string body)
{
    return {name, [=](Control &control, QString &error) { return (control.*member)(list, error); },
            [=](Control &control, QString &error) { return (control.*member)({}, error); }, code,
            std::move(body)};
}

/// One line of test data per row, under the row's name; the test fetches its "row".
template <class Row>
void addRows(const std::vector<Row> &rows)
{
    QTest::addColumn<int>("row");
    for (std::size_t i = 0; i < rows.size(); ++i)
        QTest::newRow(rows[i].name) << int(i);
}

/// The call sends one write with this code and this body, with the timeout of the model's table.
/// The status bar shows a success. Neither the caller's text nor the model changes.
template <class Control>
void verifyWrite(const typename WriteRow<Control>::Call &call, quint16 code,
                 const std::string &body)
{
    Controlled<Control> it;
    it.setTimeouts(7001, {quint16(code >> 8), quint16(code & 0xFF), 7002});
    const QSignalSpy modelChanges(it.device.model.get(),
                                  &Tavoro::BizModel::Device::deviceDataChanged);

    QVERIFY(call(it.control, it.error));
    QCOMPARE(it.error, textFromBefore());
    QCOMPARE(it.sentCount(), std::size_t(1));
    QCOMPARE(headHex(it.lastSent()), requestHead(2, code));
    QCOMPARE(asText(it.lastSent().body), asText(body));
    QCOMPARE(it.lastSent().timeout, 7002);
    const QStringList shown = it.journal.lines().filter(QStringLiteral("status bar "));
    QCOMPARE(shown.size(), 1);
    QVERIFY(shown.first().startsWith(QStringLiteral("status bar 0 for 5000 ms: Set ")));
    QCOMPARE(modelChanges.size(), 0);
}

/// After a refusal the call fails with the sentence for the user.
template <class Control>
void verifyRefusedWrite(const WriteRow<Control> &row)
{
    Controlled<Control> it;
    ScriptedAnswer refusal;
    refusal.status = 5;
    it.device.channel->answer(refusal);

    QVERIFY(!row.write(it.control, it.error));
    QVERIFY2(it.error.startsWith(QStringLiteral("Set ")), qPrintable(it.error));
    QVERIFY2(it.error.endsWith(QStringLiteral(" failed: hardware error:5 .")),
             qPrintable(it.error));
}

/// Without a channel the call succeeds, and nothing is reported.
template <class Control>
void verifyWriteWithoutChannel(const WriteRow<Control> &row)
{
    Controlled<Control> it;
    it.device.removeChannel();

    QVERIFY(row.write(it.control, it.error));
    QCOMPARE(it.error, textFromBefore());
    QCOMPARE(it.sentCount(), std::size_t(0));
    QCOMPARE(it.journal.lines().filter(QStringLiteral("status bar ")), QStringList());
}

/// If the model device is gone, the call fails with the sentence for the user.
template <class Control>
void verifyWriteOfAGoneDevice(const WriteRow<Control> &row)
{
    Controlled<Control> it;
    it.device.model.reset();

    QVERIFY(!row.write(it.control, it.error));
    QVERIFY2(it.error.startsWith(QStringLiteral("Set ")), qPrintable(it.error));
    QVERIFY2(it.error.endsWith(QStringLiteral(" failed: invalid device model data .")),
             qPrintable(it.error));
    QCOMPARE(it.sentCount(), std::size_t(0));
}
