#include "study/copying/copy_run.h"

#include <algorithm>

#include "study/copying/folder_families.h"

namespace kalvo {

namespace fs = std::filesystem;

CopyRun::CopyRun(Disk& disk, const Volumes& volumes, std::vector<fs::path> studies, fs::path folder)
    : disk_(disk),
      planner_(disk, folder),
      volumes_(volumes),
      studies_(std::move(studies)),
      folder_(std::move(folder)),
      bytes_(studies_.size(), 0) {
  for (const fs::path& study : studies_) {
    entries_.push_back({.name = study.filename().string()});
  }
}

Outcome CopyRun::Prove() {
  for (const fs::path& study : studies_) {
    if (disk_.IsSamePlace(study.parent_path(), folder_)) {
      return FileError{folder_, "Τα αρχεία αντιγράφονται σε άλλον φάκελο και όχι στον δικό τους"};
    }
  }
  if (studies_.empty()) {
    return FileError{{}, "Δεν έχετε επιλέξει αρχεία μελετών"};
  }
  const auto status = disk_.Status(folder_);
  if (!status) {
    return status.error();
  }
  if (!*status || !(*status)->is_folder) {
    return FileError{folder_, "Ο φάκελος δεν υπάρχει", FileErrorKind::kMissing};
  }
  const auto room = volumes_.RoomAt(folder_);
  if (!room) {
    return room.error();
  }
  room_ = *room;
  return room_.writable ? Outcome(Done{})
                        : FileError{folder_, "Στον φάκελο αυτόν δεν επιτρέπεται η εγγραφή"};
}

// A study that cannot be planned fails when its turn comes.
RoomEnd CopyRun::LookForRoom(const std::function<void(int)>& on_study) {
  std::vector<CopyPlan> plans;
  total_ = 0;
  for (std::size_t at = 0; at < studies_.size(); ++at) {
    if (on_study) {
      on_study(static_cast<int>(at));
    }
    auto plan = planner_.Plan(studies_[at]);
    if (!plan) {
      continue;
    }
    bytes_[at] = plan->Bytes();
    total_ += bytes_[at];
    entries_[at].files = plan->files.size();
    plans.push_back(std::move(*plan));
  }
  need_ = NeedOf(plans, room_.block);
  return Fits(need_, room_);
}

void CopyRun::Make(CopyUser& user) {
  done_ = 0;
  taken_.clear();
  bool ended = false;
  for (std::size_t at = 0; at < studies_.size(); ++at) {
    if (ended || !user.GoesOn()) {
      ended = true;
      entries_[at].fate = CopyFate::kNotReached;
      continue;
    }
    at_ = at;
    const std::uint64_t before = done_;
    if (HasMedium()) {
      ended = CopyOne(user, at) == Answer::kCancel;
    } else {
      TakeFault(entries_[at], {folder_, "Το μέσο δεν είναι πια εκεί"});
      ended = true;
    }
    file_.clear();
    done_ = before + bytes_[at];
    user.Follow(*this);
  }
}

// A folder that a medium was mounted on is there without it, too.
bool CopyRun::HasMedium() const {
  const auto room = volumes_.RoomAt(folder_);
  return room.ok() && room->medium == room_.medium;
}

void CopyRun::TakeFault(CopyEntry& entry, const FileError& error) const {
  entry.fate = CopyFate::kFailed;
  entry.reason = error.Line();
  entry.unreadable = error.file != folder_ && error.file.parent_path() != folder_;
}

Answer CopyRun::CopyOne(CopyUser& user, std::size_t at) {
  CopyEntry& entry = entries_[at];
  entry.fate = CopyFate::kUnderWay;
  const auto plan = planner_.Plan(studies_[at]);
  if (!plan) {
    TakeFault(entry, plan.error());
    return Answer::kNo;
  }
  entry.files = plan->files.size();
  entry.lacks_fluid = plan->lacks_fluid;
  if (plan->case_blind && IsTaken(at)) {
    entry.fate = CopyFate::kSameName;
    return Answer::kNo;
  }
  const fs::path place = plan->folder / plan->files.back().name;
  Answer answer = Answer::kYes;
  if (plan->same) {
    entry.fate = CopyFate::kSame;
  } else if (taken_.contains(place)) {
    entry.fate = CopyFate::kSameName;
    return Answer::kNo;
  } else {
    answer = CopyAsPlanned(user, *plan, at);
  }
  if (entry.Arrived()) {
    taken_.insert(place);
  }
  return answer;
}

Result<CopyPlan> CopyRun::AgreedPlan(CopyUser& user, CopyPlan plan, std::size_t at,
                                     Answer& answer) {
  while (!plan.in_the_way.empty() || !plan.shared.empty()) {
    user.Follow(*this);
    answer = user.MayReplace(plan);
    if (answer != Answer::kYes) {
      break;
    }
    // Others may have saved at either end while the user thought about it.
    auto now = planner_.PlanAnew(studies_[at]);
    if (!now) {
      return now.error();
    }
    const bool still = now->AsksAs(plan);
    plan = std::move(*now);
    if (still) {
      break;
    }
  }
  return plan;
}

Answer CopyRun::CopyAsPlanned(CopyUser& user, const CopyPlan& planned, std::size_t at) {
  CopyEntry& entry = entries_[at];
  Answer answer = Answer::kYes;
  const auto agreed = AgreedPlan(user, planned, at, answer);
  if (!agreed) {
    TakeFault(entry, agreed.error());
    return Answer::kNo;
  }
  const CopyPlan& plan = *agreed;
  if (answer != Answer::kYes) {
    entry.fate = answer == Answer::kCancel ? CopyFate::kNotReached : CopyFate::kKept;
    if (!plan.is_there) {
      entry.reason = plan.in_the_way.empty() ? plan.shared : plan.in_the_way;
    }
    return answer;
  }
  const Outcome made = planner_.Make(plan, [&](const std::string& name, std::uint64_t length) {
    file_ = name;
    user.Follow(*this);
    done_ += length;
  });
  if (!made) {
    TakeFault(entry, made.error());
    return Answer::kNo;
  }
  entry.fate = plan.is_there ? CopyFate::kReplaced : CopyFate::kCopied;
  return Answer::kYes;
}

// An earlier one of those chosen bears the name in another case.
bool CopyRun::IsTaken(std::size_t at) const {
  const std::string name = ComparedName(entries_[at].name);
  return std::any_of(entries_.begin(), entries_.begin() + static_cast<std::ptrdiff_t>(at),
                     [&](const CopyEntry& earlier) {
                       return earlier.name != entries_[at].name &&
                              ComparedName(earlier.name) == name;
                     });
}

bool CopyRun::IsWhole() const { return std::ranges::all_of(entries_, &CopyEntry::Arrived); }

}  // namespace kalvo
