#pragma once

#include <QMetaObject>
#include <QObject>
#include <QThread>

#include <functional>
#include <memory>

namespace Tavoro::SessionInternal {

/// Runs functions on the thread that created it, from its event loop. Threads in the background
/// keep it alive, so that they need not know whether the object that they report to still exists.
class Courier : public QObject {
public:
    static std::shared_ptr<Courier> create()
    {
        return {new Courier, [](Courier *courier) {
                    if (courier->thread() == QThread::currentThread())
                        delete courier;
                    else
                        courier->deleteLater();
                }};
    }

    /// Runs \a function later on the courier's thread, in the order of the calls. Any thread.
    void post(std::function<void()> function)
    {
        QMetaObject::invokeMethod(this, std::move(function), Qt::QueuedConnection);
    }

private:
    Courier() = default;
};

} // namespace Tavoro::SessionInternal
