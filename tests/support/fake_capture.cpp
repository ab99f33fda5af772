#include "support/fake_capture.h"

namespace support {

namespace {

std::string TextOf(const platform::CaptureAdapter::Value& value) {
  if (const auto* number = std::get_if<std::int32_t>(&value)) return std::to_string(*number);
  return "'" + std::get<std::string>(value) + "'";
}

void RaiseIfSet(const std::optional<platform::Failure>& failure) {
  if (failure) throw platform::Failure(*failure);
}

}  // namespace

std::string FakeAdapter::Description() const {
  RaiseIfSet(ReadFailure);
  return description_;
}

void FakeAdapter::Set(std::string_view property, const Value& value) {
  journal_.push_back("set " + std::string(property) + " " + TextOf(value));
  Settings[std::string(property)] = value;
  if (const auto failure = FailureAt.find(property); failure != FailureAt.end()) {
    throw platform::Failure(failure->second);
  }
}

class FakeCapture::Object : public platform::CaptureObject {
 public:
  explicit Object(FakeCapture& layer) : layer_(layer) {}
  ~Object() override { layer_.object_ = nullptr; }

  std::int32_t AdapterCount() const override {
    return static_cast<std::int32_t>(layer_.adapters_.size());
  }
  platform::CaptureAdapter& Adapters(std::int32_t index) override {
    if (index < 1 || index > AdapterCount()) {
      throw platform::Failure(platform::failure::SubscriptOutOfRange);
    }
    return *layer_.adapters_[static_cast<std::size_t>(index - 1)];
  }
  void SetAdapter(platform::CaptureAdapter& adapter) override {
    layer_.Chosen = dynamic_cast<FakeAdapter*>(&adapter);
    layer_.journal_.push_back("adapter " + adapter.Description());
  }
  platform::CaptureAdapter& Adapter() override { return *layer_.Chosen; }
  void SetWish(platform::FrameWish wish) override { layer_.Wish = std::move(wish); }
  void Start() override {
    layer_.journal_.push_back("start");
    if (layer_.AtStart) layer_.AtStart();
    RaiseIfSet(layer_.StartFailure);
    layer_.Running = true;
  }
  void Stop() override {
    layer_.journal_.push_back("stop");
    layer_.Running = false;
    layer_.waiting_.clear();
    RaiseIfSet(layer_.StopFailure);
  }
  platform::Presence AdapterPresence() override { return layer_.AdapterPresence; }
  std::optional<std::uint64_t> Dropped() override { return layer_.Dropped; }
  void DeliverArrived() override {
    while (layer_.Running && !layer_.waiting_.empty()) {
      const std::vector<std::uint8_t> frame = layer_.waiting_.front();
      layer_.waiting_.pop_front();
      layer_.Receive(frame);
    }
  }

 private:
  FakeCapture& layer_;
};

class FakeCapture::Collection : public platform::PacketCollection {
 public:
  explicit Collection(FakeCapture& layer) : layer_(layer) {}
  void Clear() override {
    layer_.journal_.push_back("clear");
    layer_.Collections.push_back("clear");
    RaiseIfSet(layer_.ClearFailure);
  }

 private:
  FakeCapture& layer_;
};

std::unique_ptr<platform::CaptureObject> FakeCapture::NewCaptureObject() {
  RaiseIfSet(CreateFailure);
  auto object = std::make_unique<Object>(*this);
  object_ = object.get();
  return object;
}

std::unique_ptr<platform::PacketCollection> FakeCapture::NewPacketCollection() {
  Collections.push_back("create");
  return std::make_unique<Collection>(*this);
}

std::int32_t FakeCapture::AddFile(const std::string& path) {
  if (path.find("damaged") != std::string::npos) {
    throw platform::Failure(platform::failure::PathFileAccess, path + " cannot be played.");
  }
  AddAdapter(path + " (for this run)");
  return static_cast<std::int32_t>(adapters_.size());
}

FakeAdapter& FakeCapture::AddAdapter(const std::string& description, bool good) {
  adapters_.push_back(std::make_unique<FakeAdapter>(journal_, description, good));
  return *adapters_.back();
}

void FakeCapture::Receive(std::span<const std::uint8_t> bytes) {
  if (Running) ReceiveInFlight(bytes);
}

void FakeCapture::ReceiveInFlight(std::span<const std::uint8_t> bytes) {
  ReceiveCut(bytes, bytes.size());
}

void FakeCapture::ReceiveCut(std::span<const std::uint8_t> bytes, std::size_t trueLength) {
  if (holds_ > 0) return;
  const platform::CapturedFrame frame{bytes, trueLength, clock_.WallTime() - Waited};
  if (Wish) Wish(frame);
  object_->OnPacket(frame);
}

}  // namespace support
