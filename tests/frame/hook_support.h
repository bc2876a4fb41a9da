// A message hook that collects every record it is shown, for tests.
#pragma once

#include <string>
#include <vector>

#include "gx_frame.h"

struct CollectedMessage {
  uint32_t severity;
  uint32_t category;
  uint32_t code;
  std::string function;
  std::string message;
};

class MessageCollector {
 public:
  explicit MessageCollector(int32_t severity_mask = GX_SEV_ERROR | GX_SEV_WARNING,
                            int32_t category_mask = 0xFF) {
    gx_msg_setrtn(this, severity_mask, category_mask, &MessageCollector::Receive);
  }
  ~MessageCollector() { gx_msg_setrtn(nullptr, 0, 0, nullptr); }
  MessageCollector(const MessageCollector&) = delete;
  MessageCollector& operator=(const MessageCollector&) = delete;

  const std::vector<CollectedMessage>& messages() const { return messages_; }
  size_t size() const { return messages_.size(); }
  const CollectedMessage& last() const { return messages_.back(); }
  std::vector<uint32_t> codes() const {
    std::vector<uint32_t> out;
    for (const auto& m : messages_) out.push_back(m.code);
    return out;
  }

 private:
  static int Receive(void* user, const gx_errext* record) {
    static_cast<MessageCollector*>(user)->messages_.push_back(
        {record->severity, record->category, record->code, record->function, record->message});
    return 0;
  }
  std::vector<CollectedMessage> messages_;
};
