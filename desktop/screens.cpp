#include "desktop/screens.h"

#include <algorithm>

#include <ui_frm_avai_d.h>
#include <ui_frm_calcs.h>
#include <ui_frm_chang.h>
#include <ui_frm_cl_pass.h>
#include <ui_frm_client.h>
#include <ui_frm_compare.h>
#include <ui_frm_copy.h>
#include <ui_frm_cur_fl.h>
#include <ui_frm_data.h>
#include <ui_frm_data_sheet.h>
#include <ui_frm_dt_sheet_help.h>
#include <ui_frm_editor.h>
#include <ui_frm_err.h>
#include <ui_frm_error.h>
#include <ui_frm_f12.h>
#include <ui_frm_ff.h>
#include <ui_frm_file_os.h>
#include <ui_frm_gen_data.h>
#include <ui_frm_go_to.h>
#include <ui_frm_kind.h>
#include <ui_frm_liquid.h>
#include <ui_frm_main.h>
#include <ui_frm_manual.h>
#include <ui_frm_old_study.h>
#include <ui_frm_open_save.h>
#include <ui_frm_preview.h>
#include <ui_frm_prnr1.h>
#include <ui_frm_rec_files.h>
#include <ui_frm_res.h>
#include <ui_frm_res_gn.h>
#include <ui_frm_res_sheet.h>
#include <ui_frm_safety.h>
#include <ui_frm_soma.h>
#include <ui_frm_stat_s.h>
#include <ui_frm_tau_cross_s.h>
#include <ui_frm_title.h>
#include <ui_frm_what.h>
#include <ui_frm_winter.h>
#include <ui_frm_xl_or_not.h>
#include <ui_frm_ypodo.h>

#include "entry/emitters/frm_f12.h"
#include "entry/emitters/frm_soma.h"
#include "entry/emitters/frm_ypodo.h"
#include "entry/general/frm_cur_fl.h"
#include "entry/general/frm_err.h"
#include "entry/general/frm_gen_data.h"
#include "entry/general/frm_liquid.h"
#include "entry/section_form/frm_data.h"
#include "entry/sections/frm_go_to.h"
#include "entry/sections/frm_what.h"
#include "entry/sheet/frm_data_sheet.h"
#include "entry/sheet/frm_dt_sheet_help.h"
#include "entry/tees/frm_tau_cross.h"
#include "entry/tees/frm_tau_cross_s.h"
#include "entry/winter/frm_winter.h"
#include "results/designer/frm_cl_pass.h"
#include "results/designer/frm_client.h"
#include "results/frm_avai_d.h"
#include "results/frm_chang.h"
#include "results/frm_compare.h"
#include "results/frm_res.h"
#include "results/frm_res_gn.h"
#include "results/frm_res_sheet.h"
#include "results/frm_stat_s.h"
#include "results/printing/frm_preview.h"
#include "results/printing/frm_prnr1.h"
#include "results/printing/frm_xl_or_not.h"
#include "shell/copying/frm_copy.h"
#include "shell/frm_calcs.h"
#include "shell/frm_editor.h"
#include "shell/frm_error.h"
#include "shell/frm_ff.h"
#include "shell/frm_file_os.h"
#include "shell/frm_kind.h"
#include "shell/frm_main.h"
#include "shell/frm_old_study.h"
#include "shell/frm_open_save.h"
#include "shell/frm_rec_files.h"
#include "shell/frm_safety.h"
#include "shell/frm_title.h"
#include "shell/manual/frm_manual.h"

namespace kalvo {
namespace {

template <typename Design>
void SetUp(QWidget& window) {
  Design design;
  design.setupUi(&window);
}

constexpr Screen kScreens[] = {
    {screen::kResults, &MakeForm<FrmRes>, &SetUp<Ui::FrmRes>},
    {screen::kPump, &MakeForm<FrmResGn>, &SetUp<Ui::FrmResGn>},
    {screen::kResultsSheet, &MakeForm<FrmRes_Sheet>, &SetUp<Ui::FrmRes_Sheet>},
    {screen::kComparison, &MakeForm<FrmCompare>, &SetUp<Ui::FrmCompare>},
    {screen::kPrintRoute, &MakeForm<FrmXLorNOT>, &SetUp<Ui::FrmXLorNOT>},
    {screen::kPrint, &MakeForm<FrmPRNR1>, &SetUp<Ui::FrmPRNR1>},
    {screen::kQuantities, &MakeForm<FrmStatS>, &SetUp<Ui::FrmStatS>},
    {screen::kPreview, &MakeForm<FrmPreview>, &SetUp<Ui::FrmPreview>},
    {screen::kOneDiameter, &MakeForm<FrmAvaiD>, &SetUp<Ui::FrmAvaiD>, screen::kResultsSheet,
     screen::kResults, true},
    {screen::kManyDiameters, &MakeForm<FrmChang>, &SetUp<Ui::FrmChang>},
    {screen::kDesigners, &MakeForm<FrmCLient>, &SetUp<Ui::FrmCLient>},
    {screen::kListPassword, &MakeForm<FrmCLPass>, &SetUp<Ui::FrmCLPass>},
    {screen::kTitle, &MakeForm<FrmTitle>, &SetUp<Ui::FrmTitle>},
    {screen::kMain, &MakeForm<FrmMain>, &SetUp<Ui::FrmMain>},
    {screen::kKind, &MakeForm<FrmKind>, &SetUp<Ui::FrmKind>},
    {screen::kFiles, &MakeForm<FrmFileOS>, &SetUp<Ui::FrmFileOS>},
    {screen::kMethod, &MakeForm<FrmCalcs>, &SetUp<Ui::FrmCalcs>},
    {screen::kViewer, &MakeForm<FrmEditor>, &SetUp<Ui::FrmEditor>},
    {screen::kNameErrors, &MakeForm<FrmError>, &SetUp<Ui::FrmError>},
    {screen::kLiquid, &MakeForm<FrmLiquid>, &SetUp<Ui::FrmLiquid>},
    {screen::kGeneralData, &MakeForm<FrmGenData>, &SetUp<Ui::FrmGenData>},
    {screen::kCurrentStudy, &MakeForm<FrmCurFL>, &SetUp<Ui::FrmCurFL>},
    {screen::kSheet, &MakeForm<FrmData_Sheet>, &SetUp<Ui::FrmData_Sheet>},
    {screen::kSections, &MakeForm<FrmData>, &SetUp<Ui::FrmData>},
    {screen::kEntryChoice, &MakeForm<FrmWhat>, &SetUp<Ui::FrmWhat>},
    {screen::kSheetHelp, &MakeForm<FrmDtSheet_Help>, &SetUp<Ui::FrmDtSheet_Help>},
    {screen::kMissingValues, &MakeForm<FrmERR>, &SetUp<Ui::FrmERR>},
    {screen::kEmitters, &MakeForm<FrmSoma>, &SetUp<Ui::FrmSoma>},
    {screen::kOutlets, &MakeForm<FrmYpodo>, &SetUp<Ui::FrmYpodo>},
    {screen::kWinter, &MakeForm<FrmWinter>, &SetUp<Ui::FrmWinter>},
    {screen::kMemoryValues, &MakeForm<FrmF12>, &SetUp<Ui::FrmF12>},
    {screen::kGoTo, &MakeForm<FrmGoTo>, &SetUp<Ui::FrmGoTo>},
    {screen::kTees, &MakeForm<FrmTauCross_S>, &SetUp<Ui::FrmTauCross_S>, screen::kSheet},
    {screen::kFormTees, &MakeForm<FrmTauCross>, &SetUp<Ui::FrmTauCross_S>, screen::kSections},
    {screen::kOldStudy, &MakeForm<FrmOldStudy>, &SetUp<Ui::FrmOldStudy>},
    {screen::kStudies, &MakeForm<FrmOpenSave>, &SetUp<Ui::FrmOpenSave>},
    {screen::kRecent, &MakeForm<FrmRecFiles_S>, &SetUp<Ui::FrmRecFiles_S>},
    {screen::kSafetyCopies, &MakeForm<FrmSafety>, &SetUp<Ui::FrmSafety>},
    {screen::kDataFolder, &MakeForm<FrmFF>, &SetUp<Ui::FrmFF>},
    {screen::kManual, &MakeForm<FrmManual>, &SetUp<Ui::FrmManual>},
    {screen::kCopy, &MakeForm<FrmCopy>, &SetUp<Ui::FrmCopy>},
};

}  // namespace

std::span<const Screen> Screens() { return kScreens; }

const Screen* FindScreen(std::string_view name) {
  const auto* found = std::ranges::find(kScreens, name, &Screen::name);
  return found == std::end(kScreens) ? nullptr : found;
}

}  // namespace kalvo
