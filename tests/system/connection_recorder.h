// SPDX-License-Identifier: MIT
// What a page connection tells, remembered for tests.
#pragma once

#include <gtest/gtest.h>

#include <algorithm>
#include <functional>
#include <string>
#include <vector>

#include "platform/services.h"

namespace requite::test {

using Names = std::vector<std::string>;
inline const Names kWholePage = {"connect", "data", "close"};

/// Remembers the events of a connection, and how deep they nest.
class Recorder : public ConnectionEvents {
 public:
  explicit Recorder(Connection& connection) : connection_(connection) { connection.Events = this; }

  void OnConnect() override {
    Note("connect");
    if (BeforeRequest) BeforeRequest();
    connection_.SendData("GET / HTTP/1.1\r\n\r\n");
    Handle(OnConnected);
  }
  void OnDataArrival(std::size_t bytesTotal) override {
    if (Events.empty() || Events.back() != "data") Note("data");
    Announced = bytesTotal;
    if (!TakesData) return;
    const std::size_t before = Data.size();
    Data += connection_.GetData();
    EXPECT_EQ(Data.size() - before, bytesTotal);
    Handle(OnData);
  }
  void OnClose() override {
    Note("close");
    ++Closes;
    Handle(OnClosed);
  }
  void OnCertificateFault(const std::string& host, std::string_view words) override {
    Faults.push_back(host + ": " + std::string(words));
  }

  std::function<void()> BeforeRequest;
  std::function<void()> OnConnected;
  std::function<void()> OnData;
  std::function<void()> OnClosed;
  bool TakesData = true;
  std::vector<std::string> Events;
  std::vector<std::string> Faults;
  std::string Data;
  std::size_t Announced = 0;
  int Closes = 0;
  int Deepest = 0;

 private:
  void Note(const char* event) { Events.emplace_back(event); }
  void Handle(const std::function<void()>& action) {
    Deepest = std::max(Deepest, ++depth_);
    if (action) action();
    --depth_;
  }

  Connection& connection_;
  int depth_ = 0;
};

}  // namespace requite::test
