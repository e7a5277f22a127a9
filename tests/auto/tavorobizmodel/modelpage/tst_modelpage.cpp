#include <support/tavorobizmodel/modelrecords.h>
#include <support/tavorobizmodel/pagesnippets.h>

#include <tavorobizmodel/devicelist.h>
#include <tavorobizmodel/deviceupdate.h>
#include <tavorobizmodel/screen.h>
#include <tavorocontrol/layer.h>

#include <QDebug>
#include <QStandardPaths>
#include <QtTest>

using namespace Tavoro;

/// The snippets of docs/model.md.
class tst_ModelPage : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void everySnippetIsCompiled();
    void storeIsOpened();
    void readingIsApplied();
    void deviceIsCreated();
    void layersOfASceneAreReadAgain();
};

void tst_ModelPage::initTestCase()
{
    QStandardPaths::setTestModeEnabled(true);
}

void tst_ModelPage::everySnippetIsCompiled()
{
    QCOMPARE(snippetsNotIn(QStringLiteral(SOURCE_FILE), QStringLiteral(PAGE)), QStringList());
}

void tst_ModelPage::storeIsOpened()
{
    BizModel::s_DeviceStoreOptions options; // devices.sqlite in the application's data folder
    QString error;
    if (!BizModel::DeviceList::instance()->openDeviceStore(options, error))
        qWarning() << error;
    QCOMPARE(error, QString());
    BizModel::DeviceList::instance()->closeDeviceStore();
}

void tst_ModelPage::readingIsApplied()
{
    const auto device = ModelRecords::device();
    const ProtoModel::DeviceBaseInfo channelInfo;
    const ModelRecords::s_DeviceDetail detail;
    const std::vector interfaces{ModelRecords::interface({1, 0, 0})};
    const std::vector screens{ModelRecords::screen(1, 0)};
    const std::vector layers{ModelRecords::layer(1, 0, 0)};
    const std::vector files{ModelRecords::file(2, 5)};
    QString error;
    BizModel::s_DeviceReading reading;
    reading.baseInfo = channelInfo; // empty if the device has no channel
    reading.isComplete = true;
    reading.detail = detail;
    reading.interfaces = interfaces;
    reading.screens = screens;
    reading.layers = layers;
    reading.files = files;
    if (!BizModel::updateDevice(*device, reading, error))
        qWarning() << error; // the faults in the records, as when building
    QCOMPARE(error, QString());
    QCOMPARE(device->interfaces().size(), 1);
    QVERIFY(device->isOnline());
}

void tst_ModelPage::deviceIsCreated()
{
    const QString address = QStringLiteral("192.0.2.9");
    const BizModel::s_DeviceReading reading;
    QString error;
    const auto created = std::make_shared<BizModel::Device>(65535, nullptr);
    created->setIPAddress(address);
    BizModel::updateDevice(*created, reading, error);
    BizModel::DeviceList::instance()->append(created);
    QVERIFY(BizModel::DeviceList::instance()->remove(created));
}

// The device has no channel, so that nothing is read and the model stays as it is.
void tst_ModelPage::layersOfASceneAreReadAgain()
{
    const auto device = ModelRecords::device();
    Control::Layer control(device);
    std::vector<ModelRecords::s_LayerFullDetail> read;
    QString error;
    const BizModel::s_LayerFilter programme{0, BizModel::Enum::Screen::OrdinaryScreen, 4};
    if (control.readDetails(programme.screenId, programme.screenType, programme.sceneType, -1, read,
                            error))
        BizModel::updateLayers(*device, read, programme, error);
    QCOMPARE(device->layers().size(), 2);
}

QTEST_GUILESS_MAIN(tst_ModelPage)
#include "tst_modelpage.moc"
