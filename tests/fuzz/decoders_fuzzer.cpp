// SPDX-License-Identifier: MIT
// Any bytes as the reply to any register, for each kind of unit and reading format: nothing breaks but by the
// program's own errors, and what was decoded can be encoded again or is reported.
#include <algorithm>
#include <cctype>
#include <cstdint>
#include <cstdlib>

#include "core/Global.h"
#include "core/Memo.h"
#include "core/Model.h"
#include "protocol/Steps.h"
#include "tests/platform/FakeHost.h"

namespace torvane {

namespace {

void require(bool holds) {
  if (!holds) std::abort();
}

void chooseUnit(unsigned choice) {
  Memo.reset();
  Global.reset();
  resetModel();
  DeviceState.IsRkw77 = asFlag(choice % 5 == 4);
  Memo[rec::menuKind].extra = static_cast<std::int16_t>(choice % 3);
  Memo[rec::monitorOnly].value = choice % 5 == 3 ? 1 : 0;
  Memo[rec::optDpoint + static_cast<int>(choice / 5 % 4)].flag = True;
}

bool isPayload(const std::string& text) {
  return std::ranges::all_of(text,
                             [](unsigned char c) { return std::isdigit(c) != 0 || (c >= 'A' && c <= 'F'); });
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  static FakeHost machine;
  if (size < 3) return 0;
  chooseUnit(data[0]);
  std::string_view replies(reinterpret_cast<const char*>(data) + 2, size - 2);
  // Replies stand one after the other, one for each row from the chosen step on.
  const auto groups = stepGroups();
  for (std::size_t step = data[1] % groups.size(); step < groups.size() && !replies.empty(); ++step) {
    for (const RegisterStep& row : groups[step]) {
      if (row.rule == StepRule::barOnly) continue;
      const std::string reply(replies.substr(0, replies.find('\r')));
      replies.remove_prefix(std::min(replies.size(), reply.size() + 1));
      attempt([&] { row.decode(reply); });
      attempt([&] {
        const Encoded encoded = row.encode();
        require(encoded.payload.starts_with('!') || isPayload(encoded.payload));
      });
    }
  }
  return 0;
}

}  // namespace torvane
