// SPDX-License-Identifier: MIT
// SHA-256 over a text in memory.
#include "core/Sha256.h"

#include <array>
#include <bit>
#include <cstddef>
#include <cstdint>

namespace torvane {

namespace {

using Word = std::uint32_t;
using State = std::array<Word, 8>;

constexpr std::size_t blockSize = 64;
constexpr std::size_t lengthSize = 8;

constexpr State start = {0x6A09E667, 0xBB67AE85, 0x3C6EF372, 0xA54FF53A,
                         0x510E527F, 0x9B05688C, 0x1F83D9AB, 0x5BE0CD19};

constexpr std::array<Word, 64> rounds = {
    0x428A2F98, 0x71374491, 0xB5C0FBCF, 0xE9B5DBA5, 0x3956C25B, 0x59F111F1, 0x923F82A4, 0xAB1C5ED5,
    0xD807AA98, 0x12835B01, 0x243185BE, 0x550C7DC3, 0x72BE5D74, 0x80DEB1FE, 0x9BDC06A7, 0xC19BF174,
    0xE49B69C1, 0xEFBE4786, 0x0FC19DC6, 0x240CA1CC, 0x2DE92C6F, 0x4A7484AA, 0x5CB0A9DC, 0x76F988DA,
    0x983E5152, 0xA831C66D, 0xB00327C8, 0xBF597FC7, 0xC6E00BF3, 0xD5A79147, 0x06CA6351, 0x14292967,
    0x27B70A85, 0x2E1B2138, 0x4D2C6DFC, 0x53380D13, 0x650A7354, 0x766A0ABB, 0x81C2C92E, 0x92722C85,
    0xA2BFE8A1, 0xA81A664B, 0xC24B8B70, 0xC76C51A3, 0xD192E819, 0xD6990624, 0xF40E3585, 0x106AA070,
    0x19A4C116, 0x1E376C08, 0x2748774C, 0x34B0BCB5, 0x391C0CB3, 0x4ED8AA4A, 0x5B9CCA4F, 0x682E6FF3,
    0x748F82EE, 0x78A5636F, 0x84C87814, 0x8CC70208, 0x90BEFFFA, 0xA4506CEB, 0xBEF9A3F7, 0xC67178F2};

Word wordAt(std::string_view block, std::size_t place) {
  Word word = 0;
  for (std::size_t i = 0; i < 4; ++i) word = word << 8 | static_cast<unsigned char>(block[4 * place + i]);
  return word;
}

std::array<Word, 64> scheduleOf(std::string_view block) {
  std::array<Word, 64> w{};
  for (std::size_t t = 0; t < 16; ++t) w[t] = wordAt(block, t);
  for (std::size_t t = 16; t < w.size(); ++t) {
    const Word a = w[t - 15];
    const Word b = w[t - 2];
    const Word small0 = std::rotr(a, 7) ^ std::rotr(a, 18) ^ (a >> 3);
    const Word small1 = std::rotr(b, 17) ^ std::rotr(b, 19) ^ (b >> 10);
    w[t] = w[t - 16] + small0 + w[t - 7] + small1;
  }
  return w;
}

void takeBlock(State& state, std::string_view block) {
  const auto w = scheduleOf(block);
  auto [a, b, c, d, e, f, g, h] = state;
  for (std::size_t t = 0; t < w.size(); ++t) {
    const Word big1 = std::rotr(e, 6) ^ std::rotr(e, 11) ^ std::rotr(e, 25);
    const Word big0 = std::rotr(a, 2) ^ std::rotr(a, 13) ^ std::rotr(a, 22);
    const Word first = h + big1 + ((e & f) ^ (~e & g)) + rounds[t] + w[t];
    const Word second = big0 + ((a & b) ^ (a & c) ^ (b & c));
    h = g, g = f, f = e, e = d + first;
    d = c, c = b, b = a, a = first + second;
  }
  const State worked = {a, b, c, d, e, f, g, h};
  for (std::size_t i = 0; i < state.size(); ++i) state[i] += worked[i];
}

// The rest of the text, a one bit, zeros, and the length in bits.
std::string tailOf(std::string_view bytes) {
  std::string tail(bytes.substr(bytes.size() / blockSize * blockSize));
  tail += '\x80';
  while (tail.size() % blockSize != blockSize - lengthSize) tail += '\0';
  const std::uint64_t bits = std::uint64_t{bytes.size()} * 8;
  for (int shift = 56; shift >= 0; shift -= 8) tail += static_cast<char>(bits >> shift & 0xFF);
  return tail;
}

void takeBlocks(State& state, std::string_view bytes) {
  for (; bytes.size() >= blockSize; bytes.remove_prefix(blockSize)) {
    takeBlock(state, bytes.substr(0, blockSize));
  }
}

}  // namespace

std::string sha256(std::string_view bytes) {
  State state = start;
  takeBlocks(state, bytes);
  takeBlocks(state, tailOf(bytes));
  std::string text;
  for (const Word word : state) {
    for (int shift = 28; shift >= 0; shift -= 4) text += "0123456789abcdef"[word >> shift & 15];
  }
  return text;
}

}  // namespace torvane
