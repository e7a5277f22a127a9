#pragma once

#include "modelstate.h"
#include "pending.h"

#include <tavorosession/sessionoptions.h>

#include <cstdint>
#include <functional>
#include <memory>
#include <string>
#include <vector>

namespace Tavoro::Python {

class Connection;

/// A device as threads of Python use it. No member blocks: each call returns a Pending, and is made
/// on the runtime's thread. Destroying it closes the device. All members: any thread.
class Device {
public:
    /// Begins to connect.
    Device(const std::string &host, std::uint16_t port, const SessionOptions &options);
    ~Device();
    Device(const Device &) = delete;
    Device &operator=(const Device &) = delete;

    /// Ends its calls, and disconnects unless another object uses the same device.
    void close();
    /// Ends when the device was read, or after this time.
    std::shared_ptr<Pending> ready(int milliseconds);

    /// Calls an operation by its name, with JSON; missing keys are sent with their defaults. The
    /// answer is JSON. Throws std::invalid_argument with the fault if the arguments are not valid.
    std::shared_ptr<Pending> call(const std::string &name,
                                  const std::vector<std::string> &arguments);
    /// Ends when state() contains what the calls that have ended until now have changed.
    std::shared_ptr<Pending> modelUpdate();

    /// Takes control; also from another client if \a isForced.
    std::shared_ptr<Pending> takeControl(bool isForced);
    /// Gives control up.
    std::shared_ptr<Pending> releaseControl();
    /// The answer is address and port of the client that holds control.
    std::shared_ptr<Pending> readControlHolder();

    /// Sends a content. \a file is the record File::s_FileInfo. Throws std::invalid_argument if it
    /// is not valid.
    std::shared_ptr<Pending> send(const std::string &file, std::string content);
    /// Sends the content of a local file.
    std::shared_ptr<Pending> sendFrom(const std::string &file, const std::string &path);
    /// The answer is the content of a file.
    std::shared_ptr<Pending> fetch(int type, int id);
    /// Fetches the content of a file into a local file.
    std::shared_ptr<Pending> fetchTo(int type, int id, const std::string &path);
    /// Starts a firmware upgrade, and follows it. \a detail is the argument of the operation
    /// Auxiliary.setUgradeConfig. Throws std::invalid_argument if it is not valid.
    std::shared_ptr<Pending> upgrade(const std::string &detail);

    /// What is known about the device.
    ModelState &state() { return *m_state; }

private:
    using Start = std::function<void(Connection &, const std::shared_ptr<Pending> &)>;

    std::shared_ptr<Pending> start(Start function);

    std::shared_ptr<ModelState> m_state;
    std::shared_ptr<Connection> m_connection; ///< Its members belong to the runtime's thread.
};

} // namespace Tavoro::Python
