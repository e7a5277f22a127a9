#pragma once

#include <tavorobizmodel/deviceupdate.h>
#include <tavorocontrol/proto/json/recordfields.h>

#include <QString>

#include <algorithm>
#include <random>
#include <string>
#include <tuple>
#include <type_traits>
#include <utility>
#include <vector>

/// Makes random readings of a small device, each of which shares most objects with the one before.
/// The same seed makes the same readings.
class RandomReadings {
public:
    using Reading = Tavoro::BizModel::s_DeviceReading;

    explicit RandomReadings(unsigned seed) : m_random(seed) { }

    /// A reading in which some objects are new, gone, changed or moved.
    Reading next()
    {
        using namespace Tavoro::ProtoModel;
        DeviceBaseInfo info;
        info.name = "box";
        info.modelId = chance(8) ? 2 : 1;
        m_last.baseInfo = chance(8) ? std::nullopt : std::optional(info);
        m_last.isComplete = !chance(4);
        change(*m_last.detail);
        if (chance(4))
            m_last.detail->general.name = "N/A";
        changeList(*m_last.interfaces, [this](auto &interface) {
            interface.interfaceId = {number(2), number(3), 0};
        });
        changeList(*m_last.screens, [this](auto &screen) {
            screen.screenType = number(4) + 1;
            screen.screenId = static_cast<quint8>(number(2));
        });
        changeList(*m_last.layers, [this](auto &layer) {
            layer.layerIdenti.screenType = number(4) + 1;
            layer.layerIdenti.screenId = static_cast<quint8>(number(2));
            layer.layerIdenti.sceneType = chance(2) ? 2 : 4;
            layer.layerIdenti.layerType = 1;
            layer.layerIdenti.layerId = static_cast<quint8>(number(3));
        });
        changeList(*m_last.files, [this](auto &file) {
            file.fileType = chance(6) ? 15 : number(3);
            file.fileId = number(4);
        });
        return m_last;
    }

    int number(int count) { return static_cast<int>(m_random() % static_cast<unsigned>(count)); }
    bool chance(int oneOf) { return number(oneOf) == 0; }

    /// Changes some fields of a record. Identities stay.
    template <class Record>
    void change(Record &record)
    {
        record.visitFields([this](auto &...fields) { (this->changeField(fields), ...); });
    }

    /// Lists objects as devices do, in the order of their identities, each only once.
    template <class Record, class Less>
    static void sort(std::vector<Record> &records, const Less &less)
    {
        std::stable_sort(records.begin(), records.end(), less);
        records.erase(std::unique(records.begin(), records.end(),
                                  [&](const Record &a, const Record &b) { return !less(a, b); }),
                      records.end());
    }

private:
    template <class Value>
    void changeField(Value &value)
    {
        using namespace Tavoro::ProtoModel;
        if constexpr (std::is_same_v<
                          Value, Layer::s_LayerIdentity> || std::is_same_v<Value, s_InterfaceID>) {
            return;
        } else if constexpr (std::is_same_v<Value, s_TimingDetailBody>) {
            if (chance(4))
                value.horizontal.addTime = value.vertical.addTime = number(3) * 500;
        } else if constexpr (std::is_same_v<Value, Layer::s_SourceGeneral>) {
            if (chance(4))
                value = {number(2), static_cast<quint32>(number(2) << 16 | number(3) << 8)};
        } else if constexpr (ajson::IsVector<Value>::value) {
            if (chance(8))
                value.resize(static_cast<std::size_t>(number(3)));
            for (auto &element : value)
                changeField(element);
        } else if constexpr (ajson::HasFields<Value>::value) {
            change(value);
        } else if (chance(40)) {
            if constexpr (std::is_same_v<Value, std::string>)
                value = std::to_string(number(5));
            else
                value = static_cast<Value>(number(2));
        }
    }

    /// Removes and moves some records, changes some, and adds others, whose identity \a identify
    /// sets. Records may occur twice.
    template <class Record, class Identify>
    void changeList(std::vector<Record> &records, const Identify &identify)
    {
        records.erase(std::remove_if(records.begin(), records.end(),
                                     [this](const auto &) { return chance(8); }),
                      records.end());
        for (Record &record : records) {
            if (chance(3))
                changeRecord(record);
        }
        for (int i = number(5); i > 0; --i) {
            Record record;
            changeRecord(record);
            identify(record);
            records.insert(records.begin() + number(static_cast<int>(records.size()) + 1), record);
        }
    }

    template <class Record>
    void changeRecord(Record &record)
    {
        using namespace Tavoro::ProtoModel;
        [[maybe_unused]] const Record before = record;
        change(record);
        if constexpr (std::is_base_of_v<s_ScreenId, Record>)
            static_cast<s_ScreenId &>(record) = before;
        if constexpr (std::is_base_of_v<s_FileIdentity, Record>) {
            static_cast<s_FileIdentity &>(record) = before;
            if (chance(2))
                record.binary.push_back(static_cast<char>(number(256)));
        }
    }

    std::mt19937 m_random;
    Reading m_last{{}, false, {{}}, {{}}, {{}}, {{}}, {{}}};
};
