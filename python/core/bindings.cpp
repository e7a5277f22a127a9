// The module tavoro._core: calls, transfers and events with JSON texts. The Python sources of the
// package make the types and functions of its users from it. _core.pyi repeats its signatures.

#include "blockingwait.h"
#include "device.h"
#include "discovery.h"
#include "runtime.h"

#include <pybind11/pybind11.h>
#include <pybind11/stl.h>

#include <chrono>
#include <memory>
#include <string>
#include <tuple>

namespace py = pybind11;

namespace Tavoro::Python {

namespace {

/// The words of the Python enumeration tavoro.Outcome; None for success.
const char *nameOf(Outcome::Kind kind)
{
    switch (kind) {
    case Outcome::Done:
        return "done";
    case Outcome::Refused:
        return "refused";
    case Outcome::NotSent:
        return "not sent";
    case Outcome::Unknown:
        return "unknown";
    }
    return "";
}

std::shared_ptr<Device> openDevice(const std::string &host, std::uint16_t port, bool setsClock,
                                   qint64 controlIdleTime, qint64 pollInterval)
{
    SessionOptions options;
    options.setsClock = setsClock;
    options.readsFileContents = false;
    options.controlIdleTime = std::chrono::milliseconds(controlIdleTime);
    const std::chrono::milliseconds interval(pollInterval);
    options.poll = {interval, interval, interval, interval, interval};
    return std::make_shared<Device>(host, port, options);
}

py::bytes answerOf(const Pending &pending)
{
    return py::bytes(pending.result().answer);
}

std::tuple<qint64, qint64, double> progressOf(const Pending &pending)
{
    const TransferProgress now = pending.progress();
    return {now.done, now.total, now.rate};
}

py::bytes stateOf(Device &device)
{
    return py::bytes(device.state().json());
}

void definePending(py::module_ &module)
{
    py::class_<Pending, std::shared_ptr<Pending>>(module, "Pending")
        .def("wait", &waitFor, py::arg("seconds"))
        .def("notify", &Pending::notify, py::arg("key"))
        .def("cancel", &Pending::cancel)
        .def_property_readonly("is_done", &Pending::isDone)
        .def_property_readonly("progress", &progressOf)
        .def_property_readonly("answer", &answerOf)
        .def_property_readonly("outcome", [](const Pending &p) { return nameOf(p.result().kind); })
        .def_property_readonly("status", [](const Pending &p) { return p.result().status; })
        .def_property_readonly("meaning", [](const Pending &p) { return p.result().meaning; })
        .def_property_readonly("text", [](const Pending &p) { return p.result().text; })
        .def_property_readonly("operation", [](const Pending &p) { return p.result().operation; })
        .def_property_readonly("is_cancelled",
                               [](const Pending &p) { return p.result().isCanceled; });
}

void defineDevice(py::module_ &module)
{
    py::class_<Device, std::shared_ptr<Device>>(module, "Device")
        .def(py::init(&openDevice), py::arg("host"), py::arg("port"), py::arg("sets_clock"),
             py::arg("control_idle_time"), py::arg("poll_interval"))
        .def("close", &Device::close)
        .def("ready", &Device::ready, py::arg("milliseconds"))
        .def("call", &Device::call, py::arg("name"), py::arg("arguments"))
        .def("model_update", &Device::modelUpdate)
        .def("take_control", &Device::takeControl, py::arg("is_forced"))
        .def("release_control", &Device::releaseControl)
        .def("read_control_holder", &Device::readControlHolder)
        .def("send", &Device::send, py::arg("file"), py::arg("content"))
        .def("send_from", &Device::sendFrom, py::arg("file"), py::arg("path"))
        .def("fetch", &Device::fetch, py::arg("type"), py::arg("id"))
        .def("fetch_to", &Device::fetchTo, py::arg("type"), py::arg("id"), py::arg("path"))
        .def("upgrade", &Device::upgrade, py::arg("detail"))
        .def_property_readonly("state", &stateOf)
        .def_property_readonly("version", [](Device &device) { return device.state().version(); })
        .def(
            "subscribe", [](Device &device, EventKey key) { device.state().subscribe(key); },
            py::arg("key"))
        .def(
            "acknowledge", [](Device &device, EventKey key) { device.state().acknowledge(key); },
            py::arg("key"))
        .def(
            "unsubscribe", [](Device &device, EventKey key) { device.state().unsubscribe(key); },
            py::arg("key"));
}

} // namespace

} // namespace Tavoro::Python

PYBIND11_MODULE(_core, module)
{
    using namespace Tavoro::Python;
    module.doc() = "What the package tavoro is built on. Programs use the package.";
    definePending(module);
    defineDevice(module);
    module.def("discover", &discover, py::arg("milliseconds"), py::arg("targets"));
    module.def("next_event", &nextEvent);
    module.def("stop", &stopRuntime);
    module.def("abandon", &Runtime::abandon);
}
