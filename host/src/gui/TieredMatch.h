// The one rule by which the user at the dialogs (GuiUser) finds a thing by a text: the candidates
// are tried tier by tier, strongest first, and the first tier with any match decides. Most finders
// have two tiers, the text exactly as given and then as plain text, so "&Loop" named exactly never
// loses to a "Loop" that matches only as plain text; controls have two more (GuiUser.h).
#ifndef VEXHOST_GUI_TIEREDMATCH_H
#define VEXHOST_GUI_TIEREDMATCH_H

#include <algorithm>
#include <string>
#include <string_view>
#include <vector>

namespace vexhost {

class TieredMatch {
public:
    // The tiers of matches(): 0, the text as given; 1, the text as plain text.
    static constexpr int ExactThenPlain = 2;

    explicit TieredMatch(std::string text);

    // The text as plain-text matching compares it (GuiUser.h).
    static std::string plainText(std::string_view text);

    // Whether the candidate is the text in the tier (of ExactThenPlain).
    bool matches(std::string_view candidate, int tier) const;
    bool matchesAsPlainText(std::string_view candidate) const;

    // The candidates of the first of tierCount tiers that accepts any (accepts(candidate, tier)),
    // in the candidates' order; with everyTier, those of every tier, strongest tier first, each
    // once.
    template <typename Candidate, typename Accepts>
    static std::vector<Candidate> find(const std::vector<Candidate>& candidates, int tierCount,
                                       Accepts accepts, bool everyTier = false) {
        std::vector<Candidate> found;
        for (int tier = 0; tier < tierCount && (everyTier || found.empty()); ++tier) {
            for (const Candidate& candidate : candidates) {
                if (accepts(candidate, tier) &&
                    std::find(found.begin(), found.end(), candidate) == found.end())
                    found.push_back(candidate);
            }
        }
        return found;
    }

private:
    std::string text_;
    std::string plain_;
};

}  // namespace vexhost

#endif
