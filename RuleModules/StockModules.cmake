# The rule modules that the program comes with, in the order of their numbers in the
# configuration: folder and library. VANTREL_STOCK_MODULES holds those that are there.

set(VANTREL_STOCK_MODULES)
foreach(module IN ITEMS
        Mill:QoxMillRulesu
        Turn:QoxTurnRulesu
        SheetMetal:QoxSMRulesu
        InjectionMoulding:QOXIMRulesu
        Assembly:QOXAssemblyRulesu
        Generic:QoxGenericRulesu
        Casting:QOXCastingRulesu
        DieCasting:QOXDieCastRulesu
        Tolerance:QoxToleranceRulesu
        Additive:QoxRPRulesu
        Welding:QOXWeldRulesu
        Tubing:QOXTubingRulesu
        SandCasting:QOXSandCastingRulesu
        InvestmentCasting:QOXInvestmentCastRulesu)
    string(REGEX REPLACE ":.*" "" folder "${module}")
    if(IS_DIRECTORY "${CMAKE_CURRENT_LIST_DIR}/${folder}")
        list(APPEND VANTREL_STOCK_MODULES "${module}")
    endif()
endforeach()

# Their libraries alone.
set(VANTREL_STOCK_LIBRARIES ${VANTREL_STOCK_MODULES})
list(TRANSFORM VANTREL_STOCK_LIBRARIES REPLACE ".*:" "")
