# Completing the week: placing what the generator left open by moving what it placed, the rule check and the
# counts that prove a week impossible.
target_sources(tt_generation PRIVATE
    placementrules.cpp placementrules.h
    completionmodel.cpp completionmodel.h
    completion.cpp completion.h
    completionstore.cpp completionstore.h
    rulecheck.cpp rulecheck.h
    feasibility.cpp feasibility.h
)
