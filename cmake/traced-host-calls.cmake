# tests/unit/support/host_trace.cpp notes the module's calls of the host.
function(trace_host_calls target)
  foreach(name
      _ZN11VarRegistercvfEv _ZN11VarRegistercviEv _ZN11VarRegister6IsTrueEv _ZN11VarRegistercvPhEv
      _ZN11VarRegistercvR8VariableEv _ZN11VarRegistercvP8VariableEv _ZN11VarRegister6GetVarEv
      _ZN11VarRegister8GetAssIDEv _ZN11VarRegisterC1Ev _ZN11VarRegisterclEPc
      _ZN8Variable8GetAssIDEv _ZN8Variable4InitE8TVARTYPEi _ZN7TalqAssC2Ev _ZN7TalqAssD2Ev _ZN7TalqAss4JoinEP8VariablePv
      _ZN9Processor12MakeInstanceER8VariablePcP11VarRegisteri
      _ZN9Processor9RunMethodER11VarRegisterPcPS0_iP8Variable
      _ZN9Processor11RunFunctionER11VarRegisterR8VariablePS0_i)
    target_link_options(${target} PRIVATE LINKER:--wrap=${name})
  endforeach()
endfunction()
