#include "TargetModel/TargetModel.h"

#include "TargetModel/Dump.h"
#include "Testing.h"

using namespace vemo::tmodel;

TEST(TargetModel, StartsEmpty) {
    EXPECT_EQ(dump(TargetModel()) + dump(LocalMemModel()).substr(303),
              "Target model (v<unknown>(1)):\n  Family: <unknown>(7)\n  Target Style Models:\n"
              "Local memory model: <null>\nLocal memory fmax degradation model: <null>");
}

TEST(TargetModel, StartsWithZeros) {
    const std::string dumps = dump(LocalMemModel()) + dump(DelayModel()) + dump(FamilyModel());
    EXPECT_EQ(split(dumps, ": 0\n").size() - 1, 12u);  // and one at the end of the delays
}

TEST(TargetModel, NamesFamilies) {
    // Key in the file, value, name for display, key in the dump.
    const std::tuple<const char*, int, const char*, const char*> families[] = {
        {"peltraa", 0, "Peltra A", "peltraa"},      {"peltrab", 1, "Peltra B", "peltrab"},
        {"peltrac", 2, "Peltra C", "<unknown>(2)"}, {"osminc", 3, "Osmin C", "osminc"},
        {"osminb", 4, "Osmin B", "osminb"},         {"duvelb", 5, "Duvel B", "duvelb"},
        {"duvelclx", 6, "Duvel C LX", "duvelclx"}};
    for (const auto& [key, value, name, dumped] : families) {
        TargetModel tm;
        tm.family = find_target_family(key);
        EXPECT_EQ(static_cast<int>(tm.family), value) << key;
        EXPECT_EQ(fields(tm.get_family_str(), tm.family), fields(name, dumped));
    }
    EXPECT_EQ(find_target_family("PELTRAA"), TargetFamily::TypeCount);
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
