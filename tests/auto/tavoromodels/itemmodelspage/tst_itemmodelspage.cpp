#include <support/tavorobizmodel/modelrecords.h>
#include <support/tavorobizmodel/pagesnippets.h>

#include <tavorobizmodel/screen.h>
#include <tavorocontrol/devicelist.h>
#include <tavoromodels/edithandler.h>
#include <tavoromodels/layersmodel.h>
#include <tavoromodels/screensmodel.h>
#include <tavoromodels/sessionedithandler.h>
#include <tavorosession/session.h>

#include <QJsonDocument>
#include <QtTest>

using namespace Tavoro;
using namespace Tavoro::Models;

namespace {

QJsonObject lastWrite;

void writeLater(const std::weak_ptr<BizModel::Device> &, const QJsonObject &record,
                const EditHandler::Done &done)
{
    lastWrite = record;
    done(QStringLiteral("not sent"));
}

QVariant symbolOf(const QString &name)
{
    return name.toUpper();
}

class FreezeHandler : public EditHandler {
public:
    bool canEdit(ObjectKind kind, const QString &key) const override
    {
        return kind == ObjectKind::Screen && key == QLatin1String("freeze");
    }

    void edit(const Edit &edit, Done done) override
    {
        writeLater(edit.device, edit.record, std::move(done));
    }
};

/// A handler for all keys that succeeds at once.
class AnyHandler : public EditHandler {
public:
    bool canEdit(ObjectKind, const QString &) const override { return true; }
    void edit(const Edit &edit, Done done) override
    {
        records.append(edit.record);
        done(QString());
    }

    QList<QJsonObject> records;
};

} // namespace

/// The snippets of docs/itemmodels.md.
class tst_ItemModelsPage : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void everySnippetIsCompiled();
    void snippetsOfModelsWork();
    void snippetOfAHandlerWorks();
    void snippetOfASessionWorks();
};

void tst_ItemModelsPage::everySnippetIsCompiled()
{
    QCOMPARE(snippetsNotIn(QStringLiteral(SOURCE_FILE), QStringLiteral(PAGE)), QStringList());
}

void tst_ItemModelsPage::snippetsOfModelsWork()
{
    const auto device = ModelRecords::device();
    Control::DeviceList reader(nullptr);
    AnyHandler handler;
    ScreensModel screens;
    screens.setDevice(device);

    LayersModel layers; // the programme of the ordinary screen 0
    layers.setDevice(device);
    layers.setScene({0, BizModel::Enum::Screen::OrdinaryScreen}, 4);

    const QModelIndex first = screens.index(0);
    const QVariantMap tbar = first.data(screens.role("tbar")).toMap();
    const int percent = tbar.value(QStringLiteral("percent")).toInt();

    screens.setDecorations([](const QString &name) { return symbolOf(name); });

    QObject::connect(&reader, &Control::DeviceList::signalReadDeviceDetailFinished, &screens,
                     &ScreensModel::refresh);

    screens.setEditHandler(&handler);
    screens.setData(first, QVariantMap{{QStringLiteral("time"), 25}}, screens.role("FTB"));
    screens.setData(first, QStringLiteral("Main wall")); // the name
    QCOMPARE(layers.rowCount(), 2);
    QCOMPARE(percent, 0);
    QCOMPARE(first.data(Qt::DecorationRole).toString(), QStringLiteral("SCREEN"));
    QCOMPARE(handler.records.size(), 2);
    QCOMPARE(
        QJsonDocument(handler.records[0]),
        QJsonDocument::fromJson(R"({"screenType":1,"screenId":0,"FTB":{"enable":0,"time":25}})"));
}

void tst_ItemModelsPage::snippetOfAHandlerWorks()
{
    const auto device = ModelRecords::device();
    ScreensModel screens;
    screens.setDevice(device);
    FreezeHandler handler;
    screens.setEditHandler(&handler);
    QVERIFY(!screens.setData(screens.index(0), 1, screens.role("selected")));
    QVERIFY(screens.setData(screens.index(0), 1, screens.role("freeze")));
    QCOMPARE(lastWrite.value(QStringLiteral("freeze")).toInt(), 1);
}

void tst_ItemModelsPage::snippetOfASessionWorks()
{
    Session session;
    SessionEditHandler editor(session);
    ScreensModel screens;
    screens.setEditHandler(&editor);
    QVERIFY(editor.canEdit(ObjectKind::Screen, QStringLiteral("freeze")));
    QVERIFY(!editor.canEdit(ObjectKind::Screen, QStringLiteral("screenId")));
}

QTEST_GUILESS_MAIN(tst_ItemModelsPage)
#include "tst_itemmodelspage.moc"
