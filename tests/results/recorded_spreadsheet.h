#pragma once

#include <algorithm>
#include <charconv>
#include <map>
#include <string>
#include <tuple>
#include <vector>

#include "results/reports/spreadsheet_application.h"

namespace kalvo {

/// A spreadsheet program that notes what it is told. Whatever its file, a workbook has the sheets
/// of `sheets` and no cell yet.
class RecordedSpreadsheet : public SpreadsheetApplication {
 public:
  std::map<std::string, int, std::less<>> sheets = {{"Αποτελέσματα", 0},
                                                    {"Δεδομένα κλειστού", 0},
                                                    {"Δεδομένα ανοικτού", 0},
                                                    {"Sheet1", 0},
                                                    {"Sheet2", 1}};
  std::optional<FileError> refuses_to_open;
  bool cancels = false;                     ///< the user, while pages go to the printer
  std::optional<FileError> refuses_to_end;  ///< to save, print or preview
  /// What it was told: "open FILE", "copy 0!1-59 to 0!60", "break 0!60", "height 0!59 7", "put" for
  /// any number of cells, "protect", "save FILE", "pdf FILE", "print PRINTER 2", "preview", "quit".
  std::vector<std::string> log;
  std::vector<std::string> bold;  ///< cells that were made so: "0!18,7"

  /// The text of a cell; a number with all the digits it has, an empty text as "''".
  [[nodiscard]] std::string At(int row, int column, int sheet = 0) const {
    const auto found = cells_.find({sheet, row, column});
    return found == cells_.end() ? std::string() : found->second;
  }
  /// Texts of all cells of a row that have one, with their columns: "2:1|3:ANT/1  ".
  [[nodiscard]] std::string Row(int row, int sheet = 0) const {
    std::string texts;
    for (const auto& [place, text] : cells_) {
      if (std::get<0>(place) != sheet || std::get<1>(place) != row) continue;
      texts += (texts.empty() ? "" : "|") + std::to_string(std::get<2>(place)) + ":" + text;
    }
    return texts;
  }
  [[nodiscard]] bool Was(const std::string& told) const {
    return std::ranges::count(log, told) > 0;
  }

  Result<std::unique_ptr<OpenWorkbook>> Open(const std::filesystem::path& file,
                                             std::string_view password) override {
    log.push_back("open " + file.string() + " " + std::string(password));
    if (refuses_to_open) return *refuses_to_open;
    cells_.clear();
    return std::unique_ptr<OpenWorkbook>(std::make_unique<Workbook>(*this));
  }

 private:
  using Place = std::tuple<int, int, int>;  // sheet, row, column

  class Workbook : public OpenWorkbook {
   public:
    explicit Workbook(RecordedSpreadsheet& application) : all_(application) {}
    Workbook(const Workbook&) = delete;
    Workbook& operator=(const Workbook&) = delete;
    ~Workbook() override { all_.log.emplace_back("quit"); }

    [[nodiscard]] std::optional<int> FindSheet(std::string_view name) const override {
      const auto found = all_.sheets.find(name);
      return found == all_.sheets.end() ? std::nullopt : std::optional(found->second);
    }
    void PutText(int sheet, int row, int column, std::string_view text) override {
      Put({sheet, row, column}, text.empty() ? "''" : std::string(text));
    }
    void PutNumber(int sheet, int row, int column, double value) override {
      char text[32];
      const auto end = std::to_chars(std::begin(text), std::end(text), value).ptr;
      Put({sheet, row, column}, std::string(text, end));
    }
    void Embolden(int sheet, int row, int column) override {
      all_.bold.push_back(Name(sheet, row) + "," + std::to_string(column));
    }
    void CopyRows(int from_sheet, RowSpan rows, int to_sheet, int target) override {
      Tell("copy " + Name(from_sheet, rows.first) + "-" + std::to_string(rows.last) + " to " +
           Name(to_sheet, target));
      std::map<Place, std::string> copies;
      for (const auto& [place, text] : all_.cells_) {
        const auto [sheet, row, column] = place;
        if (sheet == from_sheet && row >= rows.first && row <= rows.last) {
          copies[{to_sheet, target + row - rows.first, column}] = text;
        }
      }
      for (auto& [place, text] : copies) all_.cells_[place] = text;
    }
    void BreakBefore(int sheet, int row) override { Tell("break " + Name(sheet, row)); }
    void SetRowHeight(int sheet, int row, double points) override {
      Tell("height " + Name(sheet, row) + " " + std::to_string(static_cast<int>(points)));
    }
    void Protect(std::string_view password) override { Tell("protect " + std::string(password)); }
    Outcome SaveAs(const std::filesystem::path& file) override {
      return End("save " + file.string());
    }
    Outcome SaveAsPdf(const std::filesystem::path& file) override {
      return End("pdf " + file.string());
    }
    Result<bool> Print(const PrintOrder& order) override {
      const Outcome ended = End("print " + order.printer + " " + std::to_string(order.copies));
      return ended ? Result<bool>(!all_.cancels) : Result<bool>(ended.error());
    }
    Outcome Preview() override { return End("preview"); }

   private:
    static std::string Name(int sheet, int row) {
      return std::to_string(sheet) + "!" + std::to_string(row);
    }
    void Tell(std::string what) { all_.log.push_back(std::move(what)); }
    void Put(Place place, std::string text) {
      if (all_.log.back() != "put") Tell("put");
      all_.cells_[place] = std::move(text);
    }
    Outcome End(std::string what) {
      Tell(std::move(what));
      return all_.refuses_to_end ? Outcome(*all_.refuses_to_end) : Outcome(Done{});
    }

    RecordedSpreadsheet& all_;
  };

  std::map<Place, std::string> cells_;
};

}  // namespace kalvo
