#include "inspect/believable.h"

#include <algorithm>
#include <cmath>

#include "text/numbers.h"

namespace inspect {
namespace {

struct Bounds {
    double least, most;
};

// Of a density in t/m3. Osmium, the densest element, has 22.59 (CRC Handbook of Chemistry and
// Physics); softwood, the lightest board that is cut, has about 0.5. A point too few or too many
// lies outside.
constexpr Bounds kDensity{0.5, 23};

// Of a feed rate or pierce time over that between its neighbours. A digit too many or too few is a
// factor of ten. Between neighbours the course is taken as a power of the thickness, which holds
// every row of the demonstration data within 1.4.
constexpr Bounds kCourse{0.5, 2};

using Field = float process::ThicknessRow::*;

std::string Shown(float value) {
    return text::ShownNumber(value);
}

// The rows of a process by their numbers, for one of their values.
struct Course {
    const process::ProcessRecord& record;
    Field field;
    std::vector<int> rows;

    // What two rows make of the value at a thickness, as a power of it.
    double Between(int first, int second, float thickness) const {
        const auto &a = record.Row(first), &b = record.Row(second);
        const double share =
            std::log(thickness / a.Thickness) / std::log(b.Thickness / a.Thickness);
        return a.*field * std::pow(double{b.*field} / a.*field, share);
    }
    // Of a row between two others, as a factor.
    double Deviation(std::size_t at) const {
        const auto& row = record.Row(rows[at]);
        return row.*field / Between(rows[at - 1], rows[at + 1], row.Thickness);
    }
    Course Without(std::size_t at) const {
        Course other = *this;
        other.rows.erase(other.rows.begin() + static_cast<std::ptrdiff_t>(at));
        return other;
    }
    bool IsBelievable() const {
        for (std::size_t at = 1; at + 1 < rows.size(); ++at) {
            const double factor = Deviation(at);
            if (factor < kCourse.least || factor > kCourse.most) return false;
        }
        return true;
    }
    double Roughness() const {
        double sum = 0;
        for (std::size_t at = 1; at + 1 < rows.size(); ++at) {
            sum += std::pow(std::log(Deviation(at)), 2);
        }
        return sum;
    }
    // The row without which the others are smoothest; of equal ones the middle one.
    std::size_t WorstRow() const {
        std::size_t worst = rows.size() / 2;
        for (std::size_t at = 0; at < rows.size(); ++at) {
            if (Without(at).Roughness() < Without(worst).Roughness()) worst = at;
        }
        return worst;
    }
};

// Takes rows out until the others follow one course, and tells of them.
Course Smoothed(Course course, const char* name, std::vector<Doubt>& doubts) {
    while (!course.IsBelievable()) {
        const std::size_t worst = course.WorstRow();
        const int row = course.rows[worst];
        course.rows = course.Without(worst).rows;
        const auto& values = course.record.Row(row);
        const std::size_t beside = std::clamp<std::size_t>(worst, 1, course.rows.size() - 1);
        const double expected =
            course.Between(course.rows[beside - 1], course.rows[beside], values.Thickness);
        const double about = expected < 10 ? std::round(expected * 10) / 10 : std::round(expected);
        doubts.push_back({row,
                          std::string("the ") + name + " " + Shown(values.*course.field) +
                              " is off the course of its neighbours, by which it would be "
                              "about " +
                              Shown(static_cast<float>(about)),
                          course.field});
    }
    return course;
}

}  // namespace

std::vector<Doubt> DoubtsOf(const process::ProcessRecord& record) {
    std::vector<Doubt> doubts;
    std::vector<int> ascending;
    float thickest = 0;
    for (int k = 1; k <= record.ThicknessCount; ++k) {
        const auto& row = record.Row(k);
        if (row.Feedrate == 0)
            doubts.push_back(
                {k, "the feed rate is 0: nothing is cut", &process::ThicknessRow::Feedrate});
        if (row.Thickness > thickest) {
            ascending.push_back(k);
        } else if (k > 1) {
            doubts.push_back({k,
                              text::NumberText(row.Thickness) + " mm does not lie above the " +
                                  Shown(thickest) + " mm before it",
                              &process::ThicknessRow::Thickness});
        }
        thickest = std::max(thickest, row.Thickness);
    }
    // Then only what is on a course is compared with what comes before it.
    const auto course = [&](Field field, const char* name) {
        Course rows{record, field, ascending};
        std::erase_if(rows.rows, [&](int k) { return record.Row(k).*field <= 0; });
        return Smoothed(rows, name, doubts).rows;
    };
    const auto feed = course(&process::ThicknessRow::Feedrate, "feed rate");
    for (std::size_t i = 1; i < feed.size(); ++i) {
        const float rate = record.Row(feed[i]).Feedrate;
        if (rate <= record.Row(feed[i - 1]).Feedrate) continue;
        doubts.push_back({feed[i],
                          "the feed rate rises to " + Shown(rate) + " mm/min with the thickness",
                          &process::ThicknessRow::Feedrate});
    }
    const auto pierce = course(&process::ThicknessRow::PierceTime, "pierce time");
    for (std::size_t i = 1; i < pierce.size(); ++i) {
        const float time = record.Row(pierce[i]).PierceTime;
        if (time >= record.Row(pierce[i - 1]).PierceTime) continue;
        doubts.push_back({pierce[i],
                          "the pierce time falls to " + Shown(time) + " s with the thickness",
                          &process::ThicknessRow::PierceTime});
    }
    return doubts;
}

std::string DoubtOfDensity(float density) {
    if (density >= kDensity.least && density <= kDensity.most) return {};
    return "a density of " + text::NumberText(density) + " t/m3 is not between 0.5 and 23";
}

}  // namespace inspect
