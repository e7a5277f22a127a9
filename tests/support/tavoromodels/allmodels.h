#pragma once

#include "modelmirror.h"

#include <tavoromodels/devicesmodel.h>
#include <tavoromodels/filesmodel.h>
#include <tavoromodels/interfacesmodel.h>
#include <tavoromodels/layersmodel.h>
#include <tavoromodels/screensmodel.h>

#include <QAbstractItemModelTester>
#include <QList>

#include <array>
#include <memory>
#include <vector>

/// One item model of each kind, and layers of several scenes, of one device.
class AllModels {
public:
    /// Screen and type of scene (2 preview, 4 programme) of a model of layers.
    struct Scene {
        Tavoro::ProtoModel::s_ScreenId screen;
        int type;
    };
    using Scenes = std::array<Scene, 4>;

    AllModels(const std::shared_ptr<Tavoro::BizModel::Device> &device, const Scenes &scenes)
    {
        interfaces.setDevice(device);
        inputs.setInterfaceType(1);
        inputs.setDevice(device);
        screens.setDevice(device);
        files.setDevice(device);
        for (std::size_t i = 0; i < scenes.size(); ++i) {
            layers[i].setScene(scenes[i].screen, scenes[i].type);
            layers[i].setDevice(device);
        }
    }

    std::vector<Tavoro::Models::ObjectModel *> all()
    {
        std::vector<Tavoro::Models::ObjectModel *> models{&devices, &interfaces, &inputs, &screens,
                                                          &files};
        for (auto &model : layers)
            models.push_back(&model);
        return models;
    }

    Tavoro::Models::DevicesModel devices;
    Tavoro::Models::InterfacesModel interfaces;
    Tavoro::Models::InterfacesModel inputs;
    Tavoro::Models::ScreensModel screens;
    Tavoro::Models::FilesModel files;
    std::array<Tavoro::Models::LayersModel, 4> layers;
};

/// All item models of a device, each with a tester and a mirror, which see every signal.
class WatchedModels {
public:
    WatchedModels(std::shared_ptr<Tavoro::BizModel::Device> device, const AllModels::Scenes &scenes)
        : m_device(std::move(device)), m_scenes(scenes), m_models(m_device, scenes)
    {
        for (Tavoro::Models::ObjectModel *const model : m_models.all()) {
            m_testers.push_back(std::make_unique<QAbstractItemModelTester>(
                model, QAbstractItemModelTester::FailureReportingMode::QtTest));
            m_mirrors.push_back(std::make_unique<ModelMirror>(*model));
        }
    }

    /// One for each model.
    const std::vector<std::unique_ptr<ModelMirror>> &mirrors() const { return m_mirrors; }
    /// What the models signalled wrongly or not at all; nothing if they show the same as models
    /// that are made now.
    QStringList faults() const
    {
        QStringList found;
        AllModels made(m_device, m_scenes);
        const auto expected = made.all();
        for (std::size_t i = 0; i < m_mirrors.size(); ++i) {
            const QString name = QString::fromLatin1(expected[i]->metaObject()->className());
            found << m_mirrors[i]->faults;
            if (!m_mirrors[i]->isUpToDate())
                found << name + QStringLiteral(" has not signalled a change");
            if (m_mirrors[i]->rows != ModelMirror(*expected[i]).rows)
                found << name + QStringLiteral(" differs from the device");
        }
        return found;
    }

private:
    const std::shared_ptr<Tavoro::BizModel::Device> m_device;
    const AllModels::Scenes m_scenes;
    AllModels m_models;
    std::vector<std::unique_ptr<QAbstractItemModelTester>> m_testers;
    std::vector<std::unique_ptr<ModelMirror>> m_mirrors;
};
