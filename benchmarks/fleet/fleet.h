#pragma once

#include <tavorobizmodel/device.h>
#include <tavorossproxy/tcpdevicechannel.h>

#include <QObject>

#include <memory>
#include <vector>

namespace Bench {

/// The application's side: a channel and a device of the model for each port.
class Fleet : public QObject {
public:
    explicit Fleet(const std::vector<quint16> &ports);
    ~Fleet() override;

    /// Reads all devices into the model's list, one after the other.
    void synchronise();
    /// Counts the reports from now on that change the model.
    void countReports();
    qint64 applied() const { return m_applied; }

private:
    void synchronise(const Tavoro::BizModel::Device &identity);

    struct Member {
        std::shared_ptr<Tavoro::SSProxy::NetworkChannel> channel;
        std::shared_ptr<Tavoro::BizModel::Device> model;
    };
    std::vector<Member> m_members;
    qint64 m_applied = 0;
};

} // namespace Bench
