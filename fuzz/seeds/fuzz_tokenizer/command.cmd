[Command]
name = "QCF_x"
command = ~30D, DF, F, x
command = /$F, >~a+b
