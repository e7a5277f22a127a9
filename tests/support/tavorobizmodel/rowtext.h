#pragma once

#include <QByteArray>
#include <QString>

/// The record in a row of the store, as the JSON text that the codec writes for it. Decodes the row
/// by its documented grammar, without the store's own reader.
class RowText {
public:
    /// "(not a row)" for other bytes.
    static QString of(const QByteArray &row)
    {
        RowText text(row);
        const bool isRow = text.byte() == 1 && text.value();
        return isRow && text.m_place == row.size()
            ? QString::fromUtf8(text.m_text.constData(), text.m_text.size())
            : QStringLiteral("(not a row)");
    }

private:
    explicit RowText(QByteArray row) : m_row(std::move(row)) { }

    int byte() { return m_place < m_row.size() ? quint8(m_row.at(m_place++)) : -1; }

    quint64 varint()
    {
        quint64 number = 0;
        int bits = 0x80;
        for (int shift = 0; shift < 64 && (bits & 0x80) != 0; shift += 7) {
            bits = byte();
            number |= quint64(bits & 0x7F) << shift;
        }
        return number;
    }

    QByteArray bytes(quint64 size)
    {
        const QByteArray taken = m_row.mid(m_place, int(size));
        m_place += int(size);
        return taken;
    }

    bool value()
    {
        switch (byte()) {
        case 't':
            m_text += "1"; // true in JSON
            return true;
        case 'f':
            m_text += "0";
            return true;
        case 'u':
            m_text += QByteArray::number(varint());
            return true;
        case 'n':
            m_text += QByteArray::number(-1 - qint64(varint()));
            return true;
        case 'b':
            m_text += '"' + bytes(varint()).replace('\\', "\\\\").replace('"', "\\\"") + '"';
            return true;
        case 'l':
            return list();
        case 'r':
            return record();
        default:
            return false;
        }
    }

    bool list()
    {
        m_text += '[';
        const quint64 count = varint();
        for (quint64 i = 0; i < count; ++i) {
            m_text += i == 0 ? "" : ",";
            if (!value())
                return false;
        }
        m_text += ']';
        return true;
    }

    bool record()
    {
        char separator = '{';
        for (int length = byte(); length > 0; length = byte()) {
            const QByteArray name = bytes(quint64(length));
            const QByteArray before = m_text;
            m_text += separator + ('"' + name + "\":");
            if (!value())
                return false;
            if (name == "rect") // the pixels of a crop, which JSON does not have
                m_text = before;
            else
                separator = ',';
        }
        m_text += '}';
        return true;
    }

    const QByteArray m_row;
    int m_place = 0;
    QByteArray m_text;
};
