#include <tavoromodels/screensmodel.h>

#include "readymade_p.h"
#include "rowsource_p.h"

#include <tavorobizmodel/device.h>
#include <tavorobizmodel/interface.h>
#include <tavorobizmodel/mvrscreen.h>
#include <tavorobizmodel/screen.h>

#include <algorithm>

namespace Tavoro::Models {

namespace {

using Part = BizModel::Enum::Device::DataPart;
constexpr int allTypes = 0x7FFFFFFF;

struct ScreenTraits {
    using Object = BizModel::Screen;
    using Record = ProtoModel::Screen::s_ScreenFullDetail;

    static constexpr auto kind = ObjectKind::Screen;
    static constexpr auto changed = &Object::screenChanged;

    static Record record(const Object &screen) { return screen.detail(); }
    static std::shared_ptr<BizModel::Device> device(const Object &screen)
    {
        return screen.device().lock();
    }
    static QVariantMap identity(const Object &screen, const QString & /*key*/)
    {
        return identityMap(ProtoModel::s_ScreenId{screen.screenId(), screen.screenType()});
    }

    static QVariant decoration(const Object &screen, const Record & /*record*/)
    {
        namespace Type = BizModel::Enum::Screen;
        switch (screen.screenType()) {
        case Type::MosaicScreen:
            return QStringLiteral("mosaic");
        case Type::MultiviewerScreen:
            return QStringLiteral("multiviewer");
        case Type::AuxiliaryScreen:
            return QStringLiteral("auxiliary");
        case Type::UnknownScreen:
        case Type::OrdinaryScreen:
            break;
        }
        return QStringLiteral("screen");
    }

    static QVariant signal(const Object &screen, const Record & /*record*/)
    {
        const auto outputs = screen.outputs();
        return std::any_of(outputs.begin(), outputs.end(), [](const auto &weak) {
            const auto output = weak.lock();
            return output && hasSignal(output->detail());
        });
    }

    static QVariant active(const Object &screen, const Record & /*record*/)
    {
        const auto known = screen.device().lock();
        return known
            && (known->activedScreen().lock().get() == &screen
                || known->activedMVRScreen().lock().get() == &screen);
    }

    static constexpr ReadyMadeRole<Object, Record> roles[] = {
        // clang-format off
        {"display",       [](const Object &, const Record &r) { return QVariant(nameOr(r.general.name, QString::number(r.screenId))); }},
        {"decoration",    decoration},
        {"online",        [](const Object &s, const Record &) { return QVariant(isOnline(s.device())); }},
        {"signal",        signal},
        {"active",        active},
        {"genlockStatus", [](const Object &s, const Record &) { return QVariant(s.genlockStatus()); }},
        // clang-format on
    };
};

class ScreensSource : public RecordSource<ContentsSource, ScreenTraits> {
public:
    ObjectList objects() const override
    {
        const auto known = device.lock();
        return known ? lockAll(known->screens(types)) : ObjectList();
    }

    bool dependsOn(Part part) const override
    {
        return ContentsSource::dependsOn(part) || part == Part::Interfaces
            || part == Part::ActiveScreens;
    }

    ObjectList dependents(const BizModel::Interface &interface) const override
    {
        return lockAll(QList{interface.screen()});
    }

    int types = allTypes;
};

} // namespace

ScreensModel::ScreensModel(QObject *parent)
    : ContentsModel(std::make_unique<ScreensSource>(), parent)
{ }

ScreensModel::~ScreensModel() = default;

void ScreensModel::setScreenTypes(int mask)
{
    static_cast<ScreensSource &>(source()).types = mask;
    refreshRows();
}

std::shared_ptr<BizModel::Screen> ScreensModel::screen(const QModelIndex &index) const
{
    return std::static_pointer_cast<BizModel::Screen>(objectAt(index));
}

} // namespace Tavoro::Models
