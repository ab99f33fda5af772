#include "adapters/rights/right_advice.h"

#include <algorithm>
#include <vector>

#include "adapters/rights/launcher.h"

#ifdef __linux__
#include <grp.h>
#include <pwd.h>
#include <sys/stat.h>
#include <unistd.h>
#endif

namespace adapters {

#ifdef __linux__

namespace {

bool IsAmong(const std::vector<gid_t>& groups, gid_t group) {
  return std::find(groups.begin(), groups.end(), group) != groups.end();
}

std::vector<gid_t> GroupsOfTheSession() {
  std::vector<gid_t> groups(static_cast<std::size_t>(std::max(getgroups(0, nullptr), 0)));
  const int count = getgroups(static_cast<int>(groups.size()), groups.data());
  groups.resize(static_cast<std::size_t>(std::max(count, 0)));
  groups.push_back(getegid());
  return groups;
}

std::vector<gid_t> GroupsOfTheUser(const passwd& user) {
  int count = 0;
  getgrouplist(user.pw_name, user.pw_gid, nullptr, &count);
  std::vector<gid_t> groups(static_cast<std::size_t>(count));
  getgrouplist(user.pw_name, user.pw_gid, groups.data(), &count);
  groups.resize(static_cast<std::size_t>(count));
  return groups;
}

}  // namespace

WayToRight FindWayToRight() {
  using By = WayToRight::By;
  const std::filesystem::path program = OwnProgram();
  const std::filesystem::path launcher = LauncherOf(program);
  struct stat file {};
  if (launcher.empty() || stat(launcher.c_str(), &file) != 0) return {By::ProgramFile, program};
  if (IsAmong(GroupsOfTheSession(), file.st_gid)) return {By::LauncherFile, launcher};
  const group* members = getgrgid(file.st_gid);
  const passwd* user = getpwuid(geteuid());
  // Without names, nobody can be put into a group.
  if (members == nullptr || user == nullptr) return {By::LauncherFile, launcher};
  const bool joined = IsAmong(GroupsOfTheUser(*user), file.st_gid);
  return {joined ? By::NewLogin : By::Group, launcher, user->pw_name, members->gr_name};
}

#else

WayToRight FindWayToRight() {
  return {};
}

#endif

std::string AdviceOn(const WayToRight& way) {
  switch (way.What) {
    case WayToRight::By::Group:
      return "To be given the right, run\n  sudo adduser " + way.User + " " + way.Group +
             "\nthen log out and in again, and start the program again.";
    case WayToRight::By::NewLogin:
      return "The user " + way.User + " has it as a member of the group " + way.Group +
             " from the next login on. Please log out and in again, and start the program again.";
    default:
      return "To grant the right on Linux, run\n  sudo setcap cap_net_raw+ep " +
             (way.File.empty() ? "<path of the program>" : way.File.string()) +
             "\nand start the program again.";
  }
}

}  // namespace adapters
