// SPDX-License-Identifier: MIT
// One port of an Ethernet bridge in front of the simulated units of a line: connections and bytes in, timed
// events out.
#include "sim/Bridge.h"

#include <algorithm>
#include <utility>

namespace sim {

namespace {

// No line that a unit understands is a tenth of this; a bridge loses what is beyond.
constexpr std::size_t lineCapacity = 256;

void add(std::vector<BridgeEvent>& all, std::vector<BridgeEvent> more) {
  std::move(more.begin(), more.end(), std::back_inserter(all));
}

void putInOrder(std::vector<BridgeEvent>& events) {
  std::stable_sort(events.begin(), events.end(),
                   [](const BridgeEvent& a, const BridgeEvent& b) { return a.at < b.at; });
}

std::vector<BridgeEvent> talk(double from, const Unasked& unasked) {
  std::vector<BridgeEvent> events;
  for (int time = 1; time <= unasked.times && !unasked.bytes.empty(); ++time) {
    events.push_back({from + time * unasked.after, BridgeEvent::data, unasked.bytes});
  }
  return events;
}

void keepBytes(std::vector<Chunk>& chunks, std::size_t most) {
  for (Chunk& chunk : chunks) {
    chunk.bytes.resize(std::min(chunk.bytes.size(), most));
    most -= chunk.bytes.size();
  }
  std::erase_if(chunks, [](const Chunk& chunk) { return chunk.bytes.empty(); });
}

// A packet leaves with its last byte.
std::vector<Chunk> joined(std::vector<Chunk> chunks, double within) {
  std::vector<Chunk> packets;
  for (Chunk& chunk : chunks) {
    if (packets.empty() || chunk.at - packets.back().at > within) {
      packets.push_back(std::move(chunk));
    } else {
      packets.back().bytes += chunk.bytes;
      packets.back().at = chunk.at;
    }
  }
  return packets;
}

}  // namespace

std::vector<BridgeEvent> Bridge::connect(double now) {
  log_.push_back({now, '+', "connection", {}});
  line_.clear();
  const double start = now + faults.reachAfter;
  if (faults.reach == Reach::never) return {};
  if (faults.reach == Reach::refuses) return {{start, BridgeEvent::refused}};
  std::vector<BridgeEvent> events{{start, BridgeEvent::accepted}};
  add(events, talk(start, faults.unasked));
  add(events, packets(bus_.unasked(start)));
  if (faults.closeAfter) events.push_back(end(start + *faults.closeAfter));
  putInOrder(events);
  return events;
}

std::vector<BridgeEvent> Bridge::receive(double now, std::string_view bytes) {
  std::vector<BridgeEvent> events;
  for (const char byte : bytes) {
    if (line_.size() < lineCapacity || byte == '\r') line_ += byte;
    if (byte == '\r') add(events, hearLine(now, std::exchange(line_, {})));
  }
  putInOrder(events);
  return events;
}

std::vector<BridgeEvent> Bridge::hearLine(double now, const std::string& line) {
  log_.push_back({now, '|', line, {}});
  if (faults.dropAt > 0 && --faults.dropAt == 0) return drop(now, line);
  if (faults.silent) return {};
  if (useUp(faults.echoes)) return packets({{now, line}});
  if (!faults.prompt.empty()) return packets({{now, faults.prompt}});
  const Refusal* const refusal = takeRefusal(faults.refusals, line);
  if (refusal == nullptr) return packets(ask(now, line));
  if (refusal->code.empty()) return {};
  return packets({{now, refusal->code + '\r'}});
}

std::vector<Chunk> Bridge::ask(double now, const std::string& line) {
  log_.back().direction = '>';
  return bus_.receive(now, line, faults.line);
}

std::vector<BridgeEvent> Bridge::drop(double now, const std::string& line) {
  faults.dropAt = unlimited;
  faults.reach = faults.afterDrop;
  if (faults.dropAfter == 0) return {end(now + faults.late)};
  std::vector<Chunk> reply = ask(now, line);
  keepBytes(reply, faults.dropAfter);
  std::vector<BridgeEvent> events = packets(std::move(reply));
  events.push_back(end(events.empty() ? now + faults.late : events.back().at));
  return events;
}

std::vector<BridgeEvent> Bridge::packets(std::vector<Chunk> chunks) const {
  std::vector<BridgeEvent> events;
  for (const Chunk& packet : joined(std::move(chunks), faults.joinWithin)) {
    const std::size_t size = faults.pieceSize > 0 ? faults.pieceSize : packet.bytes.size();
    double at = packet.at + faults.late;
    if (!events.empty() && faults.pieceSize > 0) at = std::max(at, events.back().at + faults.pieceGap);
    for (std::size_t from = 0; from < packet.bytes.size(); from += size, at += faults.pieceGap) {
      events.push_back({at, BridgeEvent::data, packet.bytes.substr(from, size)});
    }
  }
  return events;
}

BridgeEvent Bridge::end(double at) const {
  return {at, faults.abrupt ? BridgeEvent::reset : BridgeEvent::closed};
}

std::vector<LogEntry> Bridge::takeLog() { return std::exchange(log_, {}); }

std::size_t Bridge::connections() const {
  return static_cast<std::size_t>(
      std::count_if(log_.begin(), log_.end(), [](const LogEntry& entry) { return entry.direction == '+'; }));
}

std::vector<std::string> Bridge::lines() const {
  std::vector<std::string> heard;
  for (const LogEntry& entry : log_) {
    if (entry.direction != '+') heard.push_back(entry.text.substr(0, entry.text.size() - 1));
  }
  return heard;
}

}  // namespace sim
