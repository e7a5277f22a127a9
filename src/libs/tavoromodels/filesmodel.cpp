#include <tavoromodels/filesmodel.h>

#include "readymade_p.h"
#include "rowsource_p.h"

#include <tavorobizmodel/device.h>
#include <tavorobizmodel/file.h>

#include <algorithm>
#include <iterator>

namespace Tavoro::Models {

namespace {

constexpr int anyFileType = -1;

struct FileTraits {
    using Object = BizModel::File;
    using Record = ProtoModel::File::s_FileDetail;

    static constexpr auto kind = ObjectKind::File;
    static constexpr auto changed = &Object::fileChanged;

    static Record record(const Object &file) { return file.listEntry(); }
    static std::shared_ptr<BizModel::Device> device(const Object &file)
    {
        return file.device().lock();
    }
    /// The record that renames a file also contains the new identity.
    static QVariantMap identity(const Object &file, const QString &key)
    {
        const auto id = file.identity();
        QVariantMap map = identityMap(id);
        if (key == QLatin1String("general")) {
            map.insert(QStringLiteral("desFileId"), id.fileId);
            map.insert(QStringLiteral("desFileType"), id.fileType);
        }
        return map;
    }

    static QVariant decoration(const Object &file, const Record & /*record*/)
    {
        namespace Type = BizModel::Enum::File;
        switch (file.identity().fileType) {
        case Type::Background:
            return QStringLiteral("background");
        case Type::Logo:
            return QStringLiteral("logo");
        case Type::ScreenPreset:
        case Type::DevicePreset:
            return QStringLiteral("preset");
        default:
            return QStringLiteral("file");
        }
    }

    static constexpr ReadyMadeRole<Object, Record> roles[] = {
        // clang-format off
        {"display",    [](const Object &, const Record &r) { return QVariant(nameOr(r.general.name, QString::number(r.fileId))); }},
        {"decoration", decoration},
        {"online",     [](const Object &f, const Record &) { return QVariant(isOnline(f.device())); }},
        {"transfer",   [](const Object &f, const Record &) { return toVariant(f.transferProgress()); }},
        // clang-format on
    };
};

class FilesSource : public RecordSource<ContentsSource, FileTraits> {
public:
    ObjectList objects() const override
    {
        const auto known = device.lock();
        if (!known)
            return {};
        const ObjectList all = lockAll(known->files());
        ObjectList objects;
        std::copy_if(all.begin(), all.end(), std::back_inserter(objects),
                     [this](const auto &object) {
                         const auto &file = static_cast<const BizModel::File &>(*object);
                         return type == anyFileType || type == file.identity().fileType;
                     });
        return objects;
    }

    int type = anyFileType;
};

} // namespace

FilesModel::FilesModel(QObject *parent) : ContentsModel(std::make_unique<FilesSource>(), parent) { }

FilesModel::~FilesModel() = default;

void FilesModel::setFileType(int fileType)
{
    static_cast<FilesSource &>(source()).type = fileType;
    refreshRows();
}

std::shared_ptr<BizModel::File> FilesModel::file(const QModelIndex &index) const
{
    return std::static_pointer_cast<BizModel::File>(objectAt(index));
}

} // namespace Tavoro::Models
