#include "objectprivate_p.h"

#include <tavorobizmodel/file.h>

namespace Tavoro::BizModel {

namespace {

struct FileState {
    ProtoModel::File::s_FileDetail detail;
    ProtoModel::File::s_FileTransPercent progress;
};

} // namespace

class FilePrivate : public ObjectPrivate<FileState> {
public:
    FilePrivate(File &file, const ProtoModel::File::s_FileDetail &read, std::weak_ptr<Device> owner)
        : ObjectPrivate(file, {read, {}}, std::move(owner)), identity(read)
    { }

    const ProtoModel::s_FileIdentity identity;
};

File::File(const ProtoModel::File::s_FileDetail &detail, std::weak_ptr<Device> device)
    : d(std::make_unique<FilePrivate>(*this, detail, std::move(device)))
{ }

File::~File() = default;

bool File::assign(const ProtoModel::File::s_FileDetail &read)
{
    return d->change([&](FileState &state) { return replaceIfDifferent(state.detail, read); });
}

void File::setTransferProgress(const ProtoModel::File::s_FileTransPercent &progress)
{
    d->change([&](FileState &state) { state.progress = progress; });
    d->notify(*this, &File::fileChanged);
}

ProtoModel::s_FileIdentity File::identity() const
{
    return d->identity;
}

ProtoModel::File::s_FileDetail File::detail() const
{
    return d->detail().detail;
}

ProtoModel::File::s_FileDetail File::listEntry() const
{
    return d->read([](const FileState &state) {
        ProtoModel::File::s_FileDetail entry;
        static_cast<ProtoModel::s_FileIdentity &>(entry) = state.detail;
        entry.general = state.detail.general;
        entry.source = state.detail.source;
        entry.size = state.detail.size;
        return entry;
    });
}

ProtoModel::File::s_FileTransPercent File::transferProgress() const
{
    return d->detail().progress;
}

std::weak_ptr<Device> File::device() const
{
    return d->device;
}

} // namespace Tavoro::BizModel
