#include <algorithm>
#include <deque>
#include <map>
#include <set>
#include <utility>

#include "platform/linux/access/element_facts.h"
#include "platform/linux/access/element_reader.h"

namespace corvane::desktop::reader {
namespace {

constexpr int kAtOnce = 64;  // questions that are on their way
constexpr std::size_t kMostElements = 100'000;
constexpr int kBulkTimeout = 60'000;  // milliseconds
constexpr const char* kBulkReply = "(a((so)(so)(so)iiassusau))";

// Asks a few questions at a time until none is left, then goes on.
class Queue : public std::enable_shared_from_this<Queue> {
 public:
  using Question = std::function<void(std::function<void()> answered)>;

  explicit Queue(std::function<void()> finished) : finished_(std::move(finished)) {}
  void Add(Question question) { waiting_.push_back(std::move(question)); }
  void Pump() {
    if (pumping_) return;  // an answer came at once
    pumping_ = true;
    while (running_ < kAtOnce && !waiting_.empty()) {
      const Question next = std::move(waiting_.front());
      waiting_.pop_front();
      ++running_;
      next([self = shared_from_this()] {
        --self->running_;
        self->Pump();
      });
    }
    pumping_ = false;
    if (running_ == 0 && waiting_.empty()) std::exchange(finished_, [] {})();
  }

 private:
  std::function<void()> finished_;
  std::deque<Question> waiting_;
  int running_ = 0;
  bool pumping_ = false;
};

// Walks down first, a question an element; then takes the facts of all of them
// in one answer, which is far quicker than asking each; then asks the few that
// lack something.
class TreeReading : public std::enable_shared_from_this<TreeReading> {
 public:
  TreeReading(AccessBus& bus, std::shared_ptr<const std::atomic<bool>> cancelled,
              std::function<void(std::shared_ptr<const Snapshot>)> done)
      : bus_(bus), cancelled_(std::move(cancelled)), done_(std::move(done)) {}

  void Start(const ElementRef& root) {
    walk_ = std::make_shared<Queue>([self = shared_from_this()] { self->AskForFacts(); });
    Visit(root);
    walk_->Pump();
  }

 private:
  using Place = std::pair<std::string, std::string>;

  void Visit(const ElementRef& ref) {
    if (order_.size() >= kMostElements || !seen_.emplace(ref.bus, ref.path).second) return;
    order_.push_back(ref);
    walk_->Add([self = shared_from_this(), ref](const std::function<void()>& answered) {
      if (*self->cancelled_) return answered();
      ReadChildRefs(self->bus_, ref, [self, ref, answered](auto children) {
        if (children) self->Keep(ref, std::move(*children));
        answered();
      });
    });
  }

  // Elements may tell of one another without end, so the lists are counted as well.
  void Keep(const ElementRef& ref, std::vector<ElementRef> children) {
    children.resize(std::min(children.size(), kMostElements - listed_));
    listed_ += children.size();
    for (const auto& child : children) Visit(child);
    children_[{ref.bus, ref.path}] = std::move(children);
  }

  void AskForFacts() {
    std::set<std::string> programs;
    for (const auto& ref : order_) programs.insert(ref.bus);
    auto bulk = std::make_shared<Queue>([self = shared_from_this()] { self->CompleteAll(); });
    for (const auto& program : programs) {
      bulk->Add([self = shared_from_this(), program](const std::function<void()>& answered) {
        if (*self->cancelled_) return answered();
        self->bus_.Call(
            {program, "/org/a11y/atspi/cache"}, "org.a11y.atspi.Cache", "GetItems", nullptr,
            [self, program, answered](VariantPtr reply) {
              self->TakeFacts(program, reply);
              answered();
            },
            kBulkTimeout);
      });
    }
    bulk->Pump();
  }

  void TakeFacts(const std::string& program, const VariantPtr& reply) {
    if (!reply || !g_variant_is_of_type(reply.get(), G_VARIANT_TYPE(kBulkReply))) return;
    const VariantPtr list(g_variant_get_child_value(reply.get(), 0));
    const gsize count = g_variant_n_children(list.get());
    for (gsize i = 0; i < count; ++i) {
      const VariantPtr item(g_variant_get_child_value(list.get(), i));
      const char* name = nullptr;
      const char* description = nullptr;
      const char* path = nullptr;
      BusFacts facts;
      g_variant_get_child(item.get(), 0, "(&s&o)", nullptr, &path);
      g_variant_get_child(item.get(), 6, "&s", &name);
      g_variant_get_child(item.get(), 7, "u", &facts.role);
      g_variant_get_child(item.get(), 8, "&s", &description);
      const VariantPtr states(g_variant_get_child_value(item.get(), 9));
      facts.name = name;
      facts.description = description;
      facts.states = StatesOf(states.get());
      facts_[{program, path}] = std::move(facts);
    }
  }

  void CompleteAll() {
    auto details = std::make_shared<Queue>([self = shared_from_this()] { self->Finish(); });
    for (const auto& ref : order_) {
      details->Add([self = shared_from_this(), ref](const std::function<void()>& answered) {
        if (*self->cancelled_) return answered();
        auto take = [self, answered](Element element) {
          self->Take(std::move(element));
          answered();
        };
        const auto known = self->facts_.find({ref.bus, ref.path});
        if (known == self->facts_.end()) return ReadElement(self->bus_, ref, take);
        Complete(self->bus_, ref, known->second, take);
      });
    }
    details->Pump();
  }

  void Take(Element element) {
    const auto at = children_.find({element.ref.bus, element.ref.path});
    std::vector<ElementRef> children;
    if (at != children_.end()) children = std::move(at->second);
    element.child_count = static_cast<int>(children.size());
    snapshot_->Add(std::move(element), std::move(children));
  }

  void Finish() {
    walk_.reset();
    std::exchange(done_, nullptr)(std::move(snapshot_));
  }

  AccessBus& bus_;
  std::shared_ptr<const std::atomic<bool>> cancelled_;
  std::function<void(std::shared_ptr<const Snapshot>)> done_;
  std::shared_ptr<Queue> walk_;
  std::vector<ElementRef> order_;
  std::set<Place> seen_;
  std::map<Place, std::vector<ElementRef>> children_;
  std::size_t listed_ = 0;  // in all of them
  std::map<Place, BusFacts> facts_;
  std::shared_ptr<Snapshot> snapshot_ = std::make_shared<Snapshot>();
};

}  // namespace

void ReadTree(AccessBus& bus, const ElementRef& root,
              std::shared_ptr<const std::atomic<bool>> cancelled,
              std::function<void(std::shared_ptr<const Snapshot>)> done) {
  std::make_shared<TreeReading>(bus, std::move(cancelled), std::move(done))->Start(root);
}

}  // namespace corvane::desktop::reader
