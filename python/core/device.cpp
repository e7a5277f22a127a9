#include "device.h"

#include "connection.h"
#include "pendingcalls.h"
#include "runtime.h"

#include <tavorooperations/operation.h>

#include <tavorocontrol/proto/codec.h>
#include <tavorocontrol/proto/file.h>

#include <stdexcept>
#include <utility>

namespace Tavoro::Python {

namespace {

QStringList textsOf(const std::vector<std::string> &words)
{
    QStringList texts;
    for (const std::string &word : words)
        texts += QString::fromStdString(word);
    return texts;
}

[[noreturn]] void refuse(const QString &fault)
{
    throw std::invalid_argument(fault.toStdString());
}

void check(const QString &name, const QStringList &arguments)
{
    const auto operation = Operations::find(name);
    if (!operation)
        refuse(QStringLiteral("unknown operation \"%1\"").arg(name));
    const QString fault =
        operation->prepare(arguments, Operations::MissingKeys::SentAsDefaults).fault;
    if (!fault.isEmpty())
        refuse(fault);
}

/// The record that this argument of an operation is; throws if it is not valid.
template <class Record>
Record recordFrom(const std::string &json)
{
    Record record;
    std::string error;
    if (!ajson::decodeRecord(json, record, error))
        refuse(QString::fromStdString(error));
    return record;
}

ProtoModel::s_FileIdentity identityOf(int type, int id)
{
    ProtoModel::s_FileIdentity identity;
    identity.fileType = type;
    identity.fileId = id;
    return identity;
}

} // namespace

Device::Device(const std::string &host, std::uint16_t port, const SessionOptions &options)
    : m_state(std::make_shared<ModelState>()), m_connection(std::make_shared<Connection>(m_state))
{
    Runtime::instance().post([connection = m_connection, host, port, options] {
        connection->open(QString::fromStdString(host), port, options);
    });
}

Device::~Device()
{
    // The last reference ends on the runtime's thread. Without that thread nothing may be
    // destroyed: in a forked process other threads of the libraries do not exist either.
    auto *const connection = new std::shared_ptr<Connection>(std::move(m_connection));
    Runtime::instance().post([connection] { delete connection; });
}

void Device::close()
{
    Runtime::instance().post([connection = m_connection] { connection->close(); });
}

std::shared_ptr<Pending> Device::start(Start function)
{
    auto pending = Runtime::instance().makePending();
    Runtime::instance().post([connection = m_connection, pending, function = std::move(function)] {
        function(*connection, pending);
    });
    return pending;
}

std::shared_ptr<Pending> Device::ready(int milliseconds)
{
    return start([milliseconds](Connection &connection, const auto &pending) {
        connection.whenReady(pending, milliseconds);
    });
}

std::shared_ptr<Pending> Device::call(const std::string &name,
                                      const std::vector<std::string> &arguments)
{
    const QString operation = QString::fromStdString(name);
    const QStringList texts = textsOf(arguments);
    check(operation, texts);
    return start([operation, texts](Connection &connection, const auto &pending) {
        if (auto *const session = connection.sessionFor(*pending))
            follow(session->callByName(operation, texts, Operations::MissingKeys::SentAsDefaults),
                   pending);
    });
}

std::shared_ptr<Pending> Device::modelUpdate()
{
    return start([](Connection &connection, const auto &pending) {
        if (auto *const session = connection.sessionFor(*pending))
            follow(session->modelUpdate(), pending);
    });
}

std::shared_ptr<Pending> Device::takeControl(bool isForced)
{
    return start([isForced](Connection &connection, const auto &pending) {
        if (auto *const session = connection.sessionFor(*pending))
            follow(isForced ? session->forceControl() : session->takeControl(), pending);
    });
}

std::shared_ptr<Pending> Device::releaseControl()
{
    return start([](Connection &connection, const auto &pending) {
        if (auto *const session = connection.sessionFor(*pending))
            follow(session->releaseControl(), pending);
    });
}

std::shared_ptr<Pending> Device::readControlHolder()
{
    return start([](Connection &connection, const auto &pending) {
        if (auto *const session = connection.sessionFor(*pending))
            follow(session->readControlHolder(), pending);
    });
}

std::shared_ptr<Pending> Device::send(const std::string &file, std::string content)
{
    const auto info = recordFrom<ProtoModel::File::s_FileInfo>(file);
    // Shared, since a function that is posted may be copied, and a content may have 2 GiB.
    const auto held = std::make_shared<std::string>(std::move(content));
    return start([info, held](Connection &connection, const auto &pending) {
        if (auto *const session = connection.sessionFor(*pending))
            followProgress(session->files().send(info, std::move(*held)), pending);
    });
}

std::shared_ptr<Pending> Device::sendFrom(const std::string &file, const std::string &path)
{
    const auto info = recordFrom<ProtoModel::File::s_FileInfo>(file);
    return start([info, path](Connection &connection, const auto &pending) {
        if (auto *const session = connection.sessionFor(*pending))
            followProgress(session->files().sendFrom(info, QString::fromStdString(path)), pending);
    });
}

std::shared_ptr<Pending> Device::fetch(int type, int id)
{
    return start([type, id](Connection &connection, const auto &pending) {
        if (auto *const session = connection.sessionFor(*pending))
            followProgress(session->files().fetch(identityOf(type, id)), pending);
    });
}

std::shared_ptr<Pending> Device::fetchTo(int type, int id, const std::string &path)
{
    return start([type, id, path](Connection &connection, const auto &pending) {
        if (auto *const session = connection.sessionFor(*pending))
            followProgress(
                session->files().fetchTo(identityOf(type, id), QString::fromStdString(path)),
                pending);
    });
}

std::shared_ptr<Pending> Device::upgrade(const std::string &detail)
{
    check(QStringLiteral("Auxiliary.setUgradeConfig"), {QString::fromStdString(detail)});
    const auto record = recordFrom<ProtoModel::Auxiliary::s_UpgradeDetail>(detail);
    return start([record](Connection &connection, const auto &pending) {
        if (auto *const session = connection.sessionFor(*pending))
            followProgress(session->upgrade(record), pending);
    });
}

} // namespace Tavoro::Python
