#pragma once

#include <tavoromodels/contentsmodel.h>
#include <tavoromodels/export.h>

#include <memory>

namespace Tavoro::BizModel {
class File;
}

namespace Tavoro::Models {

/// The files that a device stores, in the device's order.
///
/// The keys are those of ProtoModel::File::s_FileDetail, without the content. Further roles: \c
/// transfer, the progress of the last transfer with the keys of
/// ProtoModel::File::s_FileTransPercent.
class TAVOROMODELS_EXPORT FilesModel : public ContentsModel {
    Q_OBJECT

public:
    /// Creates a model that shows nothing until setDevice() is called.
    explicit FilesModel(QObject *parent = nullptr);
    ~FilesModel() override;

    /// Restricts the rows to one type of file; -1 shows all.
    void setFileType(int fileType);

    /// The file of a row; empty if \a index is not valid.
    std::shared_ptr<BizModel::File> file(const QModelIndex &index) const;
};

} // namespace Tavoro::Models
