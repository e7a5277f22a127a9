#include "screenbuttons.h"

#include "screenbutton.h"

#include <tavorobizmodel/device.h>
#include <tavorobizmodel/screen.h>
#include <tavoromodels/screensmodel.h>
#include <tavoropanel/selection/selection.h>
#include <tavorosession/devicesession.h>

#include <QHBoxLayout>

namespace Tavoro::Panel {

namespace {

constexpr int takenScreens =
    1 << BizModel::Enum::Screen::OrdinaryScreen | 1 << BizModel::Enum::Screen::MosaicScreen;
constexpr int screensWithShortcut = 9;

} // namespace

ScreenButtons::ScreenButtons(Selection &selection, QWidget *parent)
    : QWidget(parent),
      m_selection(selection),
      m_screens(new Models::ScreensModel(this)),
      m_row(new QHBoxLayout(this))
{
    m_row->setContentsMargins(0, 0, 0, 0);
    m_row->setSpacing(4);
    m_row->addStretch();
    m_screens->setScreenTypes(takenScreens);
    const auto follow = [this] {
        const DeviceSession *const device = m_selection.device();
        m_screens->setDevice(device ? device->device() : nullptr);
    };
    connect(&selection, &Selection::deviceChanged, this, follow);
    connect(&selection, &Selection::modelChanged, this, follow);
    connect(&selection, &Selection::screensChanged, this, &ScreenButtons::update);
    connect(&selection, &Selection::stateChanged, this, &ScreenButtons::update);
    connect(m_screens, &QAbstractItemModel::rowsInserted, this, &ScreenButtons::rebuild);
    connect(m_screens, &QAbstractItemModel::rowsRemoved, this, &ScreenButtons::rebuild);
    connect(m_screens, &QAbstractItemModel::rowsMoved, this, &ScreenButtons::rebuild);
    connect(m_screens, &QAbstractItemModel::dataChanged, this, &ScreenButtons::update);
    follow();
}

void ScreenButtons::rebuild()
{
    const auto wanted = static_cast<std::size_t>(m_screens->rowCount());
    while (m_buttons.size() > wanted) {
        delete m_buttons.back();
        m_buttons.pop_back();
    }
    while (m_buttons.size() < wanted) {
        auto *const button = new ScreenButton(this);
        const int number = static_cast<int>(m_buttons.size()) + 1;
        if (number <= screensWithShortcut)
            button->setKeys(QKeySequence(Qt::CTRL | static_cast<Qt::Key>(Qt::Key_0 + number)));
        connect(button, &QAbstractButton::clicked, this, [this, button](bool isChecked) {
            m_selection.setScreenSelected(button->screen(), isChecked);
        });
        m_row->insertWidget(m_row->count() - 1, button);
        m_buttons.push_back(button);
    }
    update();
}

void ScreenButtons::update()
{
    for (std::size_t i = 0; i < m_buttons.size(); ++i) {
        const QModelIndex index = m_screens->index(static_cast<int>(i));
        if (const auto screen = m_screens->screen(index)) {
            m_buttons[i]->show(index.data().toString(), screen->detail(),
                               m_selection.isConnected());
            m_buttons[i]->setChecked(m_selection.contains(m_buttons[i]->screen()));
        }
    }
}

void ScreenButtons::selectAll()
{
    QList<Selection::ScreenId> all;
    for (const ScreenButton *const button : m_buttons)
        all << button->screen();
    m_selection.setScreens(all);
}

} // namespace Tavoro::Panel
