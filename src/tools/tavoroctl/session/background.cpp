#include "background.h"

#include <QEventLoop>
#include <QThread>

#include <memory>

namespace Tavoro::Ctl {

void runInBackground(std::function<void()> work)
{
    QEventLoop loop;
    const std::unique_ptr<QThread> thread(QThread::create(std::move(work)));
    QObject::connect(thread.get(), &QThread::finished, &loop, &QEventLoop::quit);
    thread->start();
    loop.exec();
    thread->wait();
}

} // namespace Tavoro::Ctl
