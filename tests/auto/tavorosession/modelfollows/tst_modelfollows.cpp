// The model follows the writes of a session, without another reading of the whole device, and keeps
// its objects.

#include <support/tavorosession/sessionbench.h>

#include <tavorobizmodel/interface.h>
#include <tavorobizmodel/screen.h>
#include <tavorocontrol/interface.h>
#include <tavorocontrol/screen.h>

using namespace Tavoro;

class tst_ModelFollows : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void init()
    {
        m_bench = std::make_unique<SessionBench>();
        QVERIFY(m_bench->openReady());
    }
    void cleanup() { m_bench.reset(); }

    void interfaceFollowsAndStaysTheSameObject();
    void screenFollowsAndStaysTheSameObject();

private:
    DeviceSession &wall() { return *m_bench->wall; }
    std::shared_ptr<BizModel::Device> model() { return wall().device(); }

    std::unique_ptr<SessionBench> m_bench;
};

void tst_ModelFollows::interfaceFollowsAndStaysTheSameObject()
{
    const auto before = model()->interfaces().first().lock();
    ProtoModel::Interface::s_HDCP hdcp;
    static_cast<ProtoModel::s_InterfaceID &>(hdcp) = before->interfaceId();
    hdcp.hdcp.enable = true;
    QVERIFY(resultOf(wall().call(&Control::Interface::writeHDCP, {hdcp})));
    QTRY_VERIFY(before->detail().HDCP.enable);
    QCOMPARE(model()->interfaces().first().lock(), before);
}

void tst_ModelFollows::screenFollowsAndStaysTheSameObject()
{
    const auto before = model()->findScreen(1, 1).lock();
    ProtoModel::Screen::s_Freeze freeze;
    freeze.screenId = 1;
    freeze.screenType = 1;
    freeze.freeze = 1;
    QVERIFY(resultOf(wall().call(&Control::Screen::writeFreeze, {freeze})));
    QTRY_COMPARE(int(before->detail().freeze), 1);
    QCOMPARE(model()->findScreen(1, 1).lock(), before);
}

QTEST_GUILESS_MAIN(tst_ModelFollows)
#include "tst_modelfollows.moc"
