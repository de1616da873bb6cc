// The children are buttons: their names tell what stands on the spot, pressing them is a left click.
#include "ui/SpotAccessibility.h"

#include <QAccessible>
#include <QAccessibleWidget>
#include <algorithm>
#include <map>

#include "ui/SpotTexts.h"
#include "ui/picLayout.h"

namespace rollwick {
namespace {

// A spot, or a tool of the tool strip.
struct Item {
  int spot = SpotNone;
  Tool tool = Tool::None;
  auto operator<=>(const Item&) const = default;
};

std::vector<Item> ItemsOnView(const Game& g) {
  std::vector<Item> items;
  for (const BetId spot : SpotsOnView(g)) items.push_back({spot});
  if (g.DiceFileMode != DiceFileOff) items.push_back({SpotDiceFile});
  for (const int spot : {+SpotOn, +SpotOff, +SpotBuy, +SpotPanelSwitch, +SlotRail}) items.push_back({spot});
  for (const ToolRegion& region : kTools) items.push_back({SpotTools, region.tool});
  return items;
}

// A bet that shares its box with another one has that one's region.
int RegionSpot(const Game& g, int spot) {
  if (IsBuy(spot)) return spot - 6;
  if (spot == Bet::DontPassOdds) return Bet::DontPass;
  return IsChipStack(spot) ? SlotChipStack + PlaceOfStack(g, spot) : spot;
}

// The region that has the spot's hot point: bent bets have several.
PictureRect RectOf(const Game& g, Item item) {
  if (item.tool != Tool::None) {
    const auto* region = std::ranges::find(kTools, item.tool, &ToolRegion::tool);
    return region->rect;
  }
  if (item.spot == SpotDiceFile) return kDiceFileRect;
  const int spot = RegionSpot(g, item.spot);
  const auto hotPoint = HotPointOf(g, item.spot);
  const auto panel = g.DisplayHopBets ? AlternatePanel() : StandardPanel();
  for (const auto& regions : {TableRegions(), panel}) {
    for (const Region& region : regions) {
      if (region.spot != spot) continue;
      if (!hotPoint || region.rect.Contains(hotPoint->x, hotPoint->y)) return region.rect;
    }
  }
  return {};
}

// A spot as a button.
class SpotInterface : public QAccessibleInterface, public QAccessibleActionInterface {
 public:
  SpotInterface(picLayout& layout, Item item) : layout_(layout), item_(item) {}

  bool isValid() const override { return std::ranges::count(ItemsOnView(Table()), item_) != 0; }
  QObject* object() const override { return nullptr; }
  QWindow* window() const override { return layout_.window()->windowHandle(); }
  QAccessibleInterface* parent() const override { return QAccessible::queryAccessibleInterface(&layout_); }
  QAccessibleInterface* child(int) const override { return nullptr; }
  QAccessibleInterface* childAt(int, int) const override { return nullptr; }
  int childCount() const override { return 0; }
  int indexOfChild(const QAccessibleInterface*) const override { return -1; }
  QAccessible::Role role() const override { return QAccessible::Button; }

  QString text(QAccessible::Text kind) const override {
    if (kind == QAccessible::Name) {
      return item_.tool == Tool::None ? SpokenText(Table(), item_.spot) : SpokenText(Table(), item_.tool);
    }
    return kind == QAccessible::Description ? layout_.QuickStats(item_.spot).trimmed() : QString();
  }
  void setText(QAccessible::Text, const QString&) override {}

  QRect rect() const override {
    const PictureFrame frame = layout_.Frame();
    const PictureRect units = RectOf(Table(), item_);
    const QRectF place(frame.left + units.x * frame.scale, frame.top + units.y * frame.scale,
                       units.width * frame.scale, units.height * frame.scale);
    return place.toRect().translated(layout_.mapToGlobal(QPoint()));
  }

  QAccessible::State state() const override {
    QAccessible::State state;
    state.focusable = CanFocus();
    state.focused = CanFocus() && layout_.hasFocus() && layout_.Cursor() == item_.spot;
    state.invisible = !layout_.isVisible();
    state.disabled = !layout_.isEnabled();
    return state;
  }

  void* interface_cast(QAccessible::InterfaceType type) override {
    return type == QAccessible::ActionInterface ? static_cast<QAccessibleActionInterface*>(this) : nullptr;
  }
  QStringList actionNames() const override {
    return CanFocus() ? QStringList{pressAction(), setFocusAction()} : QStringList{pressAction()};
  }
  void doAction(const QString& name) override {
    if (!isValid()) return;
    if (name == pressAction()) {
      item_.tool == Tool::None ? layout_.Press(item_.spot) : layout_.Press(item_.tool);
    } else if (name == setFocusAction() && CanFocus()) {
      layout_.setFocus(Qt::OtherFocusReason);
      layout_.MoveCursor(item_.spot);
    }
  }
  QStringList keyBindingsForAction(const QString&) const override { return {}; }

 private:
  const Game& Table() const { return layout_.TheGame(); }
  bool CanFocus() const { return BetUnder(item_.spot) != SpotNone; }

  picLayout& layout_;
  const Item item_;
};

class LayoutInterface : public QAccessibleWidget {
 public:
  explicit LayoutInterface(picLayout& layout)
      : QAccessibleWidget(&layout, QAccessible::Pane), layout_(layout) {}
  ~LayoutInterface() override {
    for (const auto& [item, id] : made_) QAccessible::deleteAccessibleInterface(id);
  }

  int childCount() const override { return static_cast<int>(Items().size()) + Widgets(); }
  QAccessibleInterface* child(int index) const override {
    const std::vector<Item> items = Items();
    const int count = static_cast<int>(items.size());
    if (index < 0) return nullptr;
    if (index >= count) return QAccessibleWidget::child(index - count);
    return Made(items[static_cast<std::size_t>(index)]);
  }
  int indexOfChild(const QAccessibleInterface* child) const override {
    const std::vector<Item> items = Items();
    const auto at = std::ranges::find_if(items, [&](Item item) { return Made(item) == child; });
    if (at != items.end()) return static_cast<int>(at - items.begin());
    const int index = QAccessibleWidget::indexOfChild(child);
    return index < 0 ? -1 : index + static_cast<int>(items.size());
  }
  QAccessibleInterface* childAt(int x, int y) const override {
    const QPoint at = layout_.mapFromGlobal(QPoint(x, y));
    if (!layout_.rect().contains(at)) return nullptr;
    const PicturePoint point = ToPicture(layout_.Frame(), at.x(), at.y());
    const Item item = {layout_.SpotAt(at), ToolAt(point.x, point.y)};
    const auto items = Items();
    const bool isThere = std::ranges::find(items, item) != items.end();
    return isThere ? Made(item) : nullptr;
  }
  QAccessibleInterface* focusChild() const override {
    const auto items = Items();
    const Item cursor = {layout_.Cursor()};
    const bool isThere = layout_.hasFocus() && std::ranges::find(items, cursor) != items.end();
    return isThere ? Made(cursor) : QAccessibleWidget::focusChild();
  }

 private:
  std::vector<Item> Items() const { return ItemsOnView(layout_.TheGame()); }
  int Widgets() const { return QAccessibleWidget::childCount(); }
  QAccessibleInterface* Made(Item item) const {
    const auto known = made_.find(item);
    if (known != made_.end()) return QAccessible::accessibleInterface(known->second);
    const auto id = QAccessible::registerAccessibleInterface(new SpotInterface(layout_, item));
    made_.emplace(item, id);
    return QAccessible::accessibleInterface(id);
  }

  picLayout& layout_;
  mutable std::map<Item, QAccessible::Id> made_;  // as they were asked for
};

QAccessibleInterface* MakeInterface(const QString&, QObject* object) {
  auto* layout = qobject_cast<picLayout*>(object);
  return layout == nullptr ? nullptr : new LayoutInterface(*layout);
}

void Tell(picLayout& layout, QAccessible::Event what) {
  if (!QAccessible::isActive() || !layout.hasFocus()) return;
  QAccessibleInterface* table = QAccessible::queryAccessibleInterface(&layout);
  QAccessibleInterface* spot = table == nullptr ? nullptr : table->focusChild();
  if (spot == nullptr) return;
  QAccessibleEvent event(spot, what);
  QAccessible::updateAccessibility(&event);
}

}  // namespace

void InstallSpotAccessibility() {
  QAccessible::installFactory(MakeInterface);
}

void TellFocus(picLayout& layout) {
  Tell(layout, QAccessible::Focus);
}

void TellCursorText(picLayout& layout) {
  Tell(layout, QAccessible::NameChanged);
}

}  // namespace rollwick
