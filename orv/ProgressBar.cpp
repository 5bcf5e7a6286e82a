// SPDX-License-Identifier: Apache-2.0
//
// ProgressBar: drawn at most ten times a second, over itself.

#include "orv/ProgressBar.h"

#include <fmt/format.h>
#include <iostream>
#include <unistd.h>

#include "orv/words.h"

namespace velto::orv {

namespace {

constexpr auto kPatience = std::chrono::milliseconds(500);
constexpr auto kInterval = std::chrono::milliseconds(100);
constexpr std::size_t kWidth = 30;

}  // namespace

ProgressBar::ProgressBar(bool wanted) : visible_(wanted && isatty(STDERR_FILENO) != 0) {}

ProgressBar::~ProgressBar() { wipe(); }

void ProgressBar::onProgress(const std::string& what, std::uint64_t done, std::uint64_t total) {
  if (!visible_ || total == 0) {
    return;
  }
  const Clock::time_point now = Clock::now();
  if (what != what_) {
    wipe();
    what_ = what;
    begin_ = now;
    drawn_ = now;
  }
  if (done >= total) {
    wipe();
    return;
  }
  if (now - begin_ < kPatience || now - drawn_ < kInterval) {
    return;
  }
  drawn_ = now;
  shown_ = true;
  const double share = static_cast<double>(done) / static_cast<double>(total);
  const auto filled = static_cast<std::size_t>(share * static_cast<double>(kWidth));
  const double elapsed = std::chrono::duration<double>(now - begin_).count();
  const auto rate = static_cast<std::uint64_t>(static_cast<double>(done) / elapsed);
  std::cerr << fmt::format("\r[{:=<{}}{: <{}}] {:3.0f}%, {}/s, {:.0f} s left: {}\033[K", "", filled,
                           "", kWidth - filled, share * 100.0, sizeText(rate),
                           elapsed / share - elapsed, what)
            << std::flush;
}

void ProgressBar::wipe() {
  if (shown_) {
    std::cerr << "\r\033[K" << std::flush;
    shown_ = false;
  }
}

}  // namespace velto::orv
