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
    using ObjectPrivate::ObjectPrivate;
};

File::File(const ProtoModel::File::s_FileDetail &detail, std::weak_ptr<Device> device)
    : d(std::make_unique<FilePrivate>(*this, FileState{detail, {}}, std::move(device)))
{ }

File::~File() = default;

void File::setTransferProgress(const ProtoModel::File::s_FileTransPercent &progress)
{
    d->change([&](FileState &state) { state.progress = progress; });
    d->notify(*this, &File::fileChanged);
}

ProtoModel::File::s_FileDetail File::detail() const
{
    return d->detail().detail;
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
