#pragma once

#include <support/tavoropanel/panelbench.h>

#include <tavoropanel/files/filesview.h>
#include <tavoropanel/files/imagelist.h>
#include <tavoropanel/files/transferrow.h>

#include <tavorobizmodel/file.h>

#include <QApplication>
#include <QDragEnterEvent>
#include <QDropEvent>
#include <QFile>
#include <QImage>
#include <QMimeData>
#include <QTemporaryDir>
#include <QToolButton>
#include <QUrl>

#include <memory>
#include <string>

/// The images of a simulated device, and local images to send.
class FilesBench : public PanelBench {
public:
    explicit FilesBench(const Tavoro::Sim::SimOptions &device = smallDevice())
        : PanelBench(patientOptions(), device)
    {
        if (!openSelected())
            qFatal("the device is not ready");
        view = std::make_unique<Tavoro::Panel::FilesView>(selection, messages, changes, actions);
        view->resize(500, 500);
        view->show();
        list = view->findChild<Tavoro::Panel::ImageList *>();
    }

    /// A local image with pixels that do not compress.
    QString makeImage(const QString &name, int width = 64, int height = 36) const
    {
        QImage image(width, height, QImage::Format_RGB32);
        quint32 pixel = 1;
        for (int y = 0; y < height; ++y) {
            for (int x = 0; x < width; ++x)
                image.setPixel(x, y, pixel = pixel * 1664525U + 1013904223U);
        }
        const QString path = folder.filePath(name);
        if (!image.save(path))
            qFatal("the image cannot be saved");
        return path;
    }
    /// Drops files onto the list. Returns whether the list accepted them.
    bool drop(const QStringList &paths)
    {
        QMimeData data;
        QList<QUrl> urls;
        for (const QString &path : paths)
            urls << QUrl::fromLocalFile(path);
        data.setUrls(urls);
        const QPoint place = list->viewport()->rect().center();
        QDragEnterEvent enter(place, Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
        enter.ignore();
        QApplication::sendEvent(list->viewport(), &enter);
        if (!enter.isAccepted())
            return false;
        QDropEvent dropped(QPointF(place), Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
        QApplication::sendEvent(list->viewport(), &dropped);
        return dropped.isAccepted();
    }
    std::shared_ptr<Tavoro::BizModel::File> file(int type, int id) const
    {
        return model()
            ->findFile(static_cast<Tavoro::BizModel::Enum::File::FileType>(type), id)
            .lock();
    }
    std::string contentOf(int type, int id)
    {
        return resultOf(wall->files().fetch({id, type})).record();
    }
    static std::string bytesOf(const QString &path)
    {
        QFile local(path);
        if (!local.open(QIODevice::ReadOnly))
            qFatal("no file %s", qUtf8Printable(path));
        return local.readAll().toStdString();
    }
    QToolButton *button(const char *name) const
    {
        return view->findChild<QToolButton *>(QLatin1String(name));
    }
    Tavoro::Panel::TransferRow *transfer() const
    {
        return view->findChild<Tavoro::Panel::TransferRow *>();
    }

    QTemporaryDir folder;
    std::unique_ptr<Tavoro::Panel::FilesView> view;
    Tavoro::Panel::ImageList *list = nullptr;
};

/// A device to which an image takes many packets.
inline Tavoro::Sim::SimOptions deviceOfSmallPackets()
{
    Tavoro::Sim::SimOptions device = PanelBench::smallDevice();
    device.packetSize = 4096;
    return device;
}

/// The device keeps back the answer to a packet of a file: a transfer stays under way.
constexpr char heldTransfer[] = "hold,code=0xFA03,skip=6,count=1";
