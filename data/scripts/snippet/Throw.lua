-- A whole throw (attempt, hold, the opponent's custom states) with the default settings.
function codeSnippet()
    include("common/Throw")
    return makeThrow({})
end
