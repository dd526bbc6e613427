#include "TargetModel/TargetModel.h"

#include <regex>

#include "TargetModel/Dump.h"
#include "Testing.h"

using namespace vemo::tmodel;

TEST(TargetModel, StartsEmpty) {
    EXPECT_EQ(dump(TargetModel()), R"(Target model (v<unknown>(1)):
  Family: <unknown>(7)
  Target Style Models:
Local memory model: <null>
)");
}

TEST(TargetModel, PartsStartWithZeros) {
    const std::string dumps = dump(LocalMemModel()) + "\n" + dump(LocalMemFmaxDegradationModel())
                              + "\n" + dump(GlobalInterconnectModel()) + "\n" + dump(DelayModel())
                              + "\n" + dump(FamilyModel());
    EXPECT_FALSE(std::regex_search(dumps, std::regex(": ([1-9]|0[^ \n])"))) << dumps;
    EXPECT_EQ(LocalMemModel().get_dual_port_mem_block_supports_rdw_mode_old_data(), 0u);
}

TEST(TargetModel, NamesFamilies) {
    struct {
        const char* key;  // in the file
        int value;
        const char* display_name;
        const char* dumped;
    } const families[] = {
        {"peltraa", 0, "Peltra A", "peltraa"},      {"peltrab", 1, "Peltra B", "peltrab"},
        {"peltrac", 2, "Peltra C", "<unknown>(2)"}, {"osminc", 3, "Osmin C", "osminc"},
        {"osminb", 4, "Osmin B", "osminb"},         {"duvelb", 5, "Duvel B", "duvelb"},
        {"duvelclx", 6, "Duvel C LX", "duvelclx"},
    };
    for (const auto& family : families) {
        SCOPED_TRACE(family.key);
        TargetModel tm;
        tm.family = find_target_family(family.key);
        EXPECT_EQ(static_cast<int>(tm.family), family.value);
        EXPECT_STREQ(find_target_family_key(tm.family), family.key);
        EXPECT_STREQ(tm.get_family_str(), family.display_name);
        EXPECT_EQ(dump(tm.family), family.dumped);
        EXPECT_EQ(find_target_family(family.display_name), TargetFamily::TypeCount);
    }
    EXPECT_EQ(find_target_family("PELTRAA"), TargetFamily::TypeCount);
    EXPECT_EQ(find_target_family_key(TargetFamily::TypeCount), nullptr);
    EXPECT_EQ(dump(static_cast<TargetFamily>(-1)), "<unknown>(-1)");
}

TEST(TargetModelDeathTest, PartsMustBeThere) {
    const auto expect_missing = [](auto& tm, auto& mem) {
        expect_aborts({
            {"m_local_mem_model != __null", [&] { tm.get_local_mem_model(); }},
            {"m_global_interconnect_model != __null", [&] { tm.get_global_interconnect_model(); }},
            {"m_delay_model != __null", [&] { tm.get_delay_model(); }},
            {"m_family_model != __null", [&] { tm.get_family_model(); }},
            {"m_fmax_degradation_model != __null", [&] { mem.get_fmax_degradation_model(); }},
        });
    };
    TargetModel tm;
    LocalMemModel mem;
    expect_missing(tm, mem);
    expect_missing(std::as_const(tm), std::as_const(mem));
    expect_aborts({
        {"local_mem_model != __null", [&] { tm.set_local_mem_model(nullptr); }},
        {"global_interconnect_model != __null", [&] { tm.set_global_interconnect_model(nullptr); }},
        {"delay_model != __null", [&] { tm.set_delay_model(nullptr); }},
        {"family_model != __null", [&] { tm.set_family_model(nullptr); }},
        {"fmax_degradation_model != __null", [&] { mem.set_fmax_degradation_model(nullptr); }},
        {"false && \"Could not find string for family enum\"", [&] { tm.get_family_str(); }},
    });
}

TEST(TargetModelDeathTest, FiguresAreInRange) {
    using M = LocalMemModel;
    const auto expect_refused = [](const char* condition, unsigned value, auto... setters) {
        (expect_aborts({{condition, [&] { (M().*setters)(value); }}}), ...);
    };
    expect_refused("mem_block_width > 0", 0, &M::set_single_port_mem_block_width,
                   &M::set_dual_port_mem_block_width);
    expect_refused("mem_block_depth > 0", 0, &M::set_single_port_mem_block_depth,
                   &M::set_dual_port_mem_block_depth);
    expect_refused("cache_size_n > 0", 0, &M::set_bursting_lsu_cache_size_n);
    expect_refused("supports_old_data == 0 || supports_old_data == 1", 2,
                   &M::set_single_port_mem_block_supports_rdw_mode_old_data,
                   &M::set_dual_port_mem_block_supports_rdw_mode_old_data);
}
