#pragma once

#include <support/tavoropanel/panelbench.h>

#include <tavoropanel/details/detailsview.h>

#include <tavorobizmodel/file.h>
#include <tavorobizmodel/interface.h>
#include <tavorobizmodel/layer.h>
#include <tavorobizmodel/screen.h>
#include <tavorocontrol/file.h>
#include <tavorocontrol/proto/codec.h>
#include <tavorooperations/jsontext.h>

#include <QJsonObject>
#include <QLabel>
#include <QScrollArea>
#include <QTabBar>
#include <QTest>

#include <memory>
#include <string>

/// The tabs of the details, in their order.
enum DetailsTab {
    LayerTab,
    ScreenTab,
    InputTab,
    FileTab,
    DeviceTab
};

/// The details of a device of which a layer, a screen and an input are selected.
class DetailsBench : public PanelBench {
public:
    DetailsBench()
    {
        if (!openSelected())
            qFatal("the device is not ready");
        view = std::make_unique<Tavoro::Panel::DetailsView>(selection, messages, changes, actions);
        view->resize(400, 700);
        view->show();
        selection.setInterface(Tavoro::Panel::Selection::InterfaceId{1, 2, 0});
        selection.setLayer(layerId());
    }

    template <class Widget>
    Widget *control(const char *path, DetailsTab tab)
    {
        view->findChild<QTabBar *>()->setCurrentIndex(tab);
        auto *const found = currentPage()->findChild<Widget *>(QLatin1String(path));
        if (!found)
            qFatal("there is no control for %s", path);
        return found;
    }
    QLabel *refusal(const char *path) const
    {
        return currentPage()->findChild<QLabel *>(QStringLiteral("refusal of ")
                                                  + QLatin1String(path));
    }
    QWidget *currentPage() const
    {
        for (QScrollArea *const area : view->findChildren<QScrollArea *>()) {
            if (area->isVisible())
                return area->widget();
        }
        qFatal("no page is shown");
        return nullptr;
    }

    /// Makes the device store an image of this number as a logo.
    void createImage(int number)
    {
        Tavoro::ProtoModel::File::s_CreateImageFile image;
        image.fileId = number;
        image.fileType = Tavoro::BizModel::Enum::File::Logo;
        image.source = {65792, 1, 8};
        if (!resultOf(wall->call(&Tavoro::Control::File::writeCreateImageFile, {image})))
            qFatal("the device does not create the image");
    }
    std::shared_ptr<Tavoro::BizModel::File> image(int number) const
    {
        return model()->findFile(Tavoro::BizModel::Enum::File::Logo, number).lock();
    }

    template <class Record>
    static QJsonObject json(const Record &record)
    {
        std::string text;
        ajson::encodeRecord(record, text);
        return Tavoro::Operations::jsonValue(text).toObject();
    }
    /// The record that the model has of what a tab shows.
    QJsonObject record(DetailsTab tab) const
    {
        switch (tab) {
        case LayerTab:
            return json(model()->findLayer(layerId()).lock()->detail());
        case ScreenTab:
            return json(model()->findScreen(1, 1).lock()->detail());
        case InputTab:
            return json(model()->findInterface({1, 2, 0}).lock()->detail());
        case FileTab:
            break;
        case DeviceTab:
            return json(model()->deviceDetail());
        }
        return {};
    }
    QJsonValue value(const char *path, DetailsTab tab) const
    {
        QJsonValue found = record(tab);
        for (const QString &key : QString::fromLatin1(path).split(QLatin1Char('.')))
            found = found.toObject().value(key);
        return found;
    }

    /// Types a text into a control, as a user would.
    static void type(QWidget *control, const QString &text)
    {
        QTest::mouseClick(control, Qt::LeftButton);
        control->setFocus();
        QTest::keyClick(control, Qt::Key_A, Qt::ControlModifier);
        QTest::keyClicks(control, text);
        QTest::keyClick(control, Qt::Key_Return);
    }

    std::unique_ptr<Tavoro::Panel::DetailsView> view;
};
